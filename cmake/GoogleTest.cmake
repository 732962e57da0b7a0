# Built here from the sources Debian ships, never from its ready-made archive: so it follows the
# word size and the sanitizers of the build it tests.
find_path(GOOGLETEST_SOURCE_DIR googletest/include/gtest/gtest.h PATHS /usr/src/googletest
          NO_DEFAULT_PATH)

if(GOOGLETEST_SOURCE_DIR)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${GOOGLETEST_SOURCE_DIR} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  # It need not be fast, and is the costliest source of all.
  foreach(target IN ITEMS gtest gtest_main)
    target_compile_options(${target} PRIVATE -O0 -U_FORTIFY_SOURCE)
  endforeach()
else()
  message(STATUS "The googletest package is not installed: building without tests")
endif()
