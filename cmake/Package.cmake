set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_VENDOR "The vyr developers")
set(CPACK_PACKAGE_CONTACT "The vyr developers <maintainers@example.org>")
set(processor ${CMAKE_SYSTEM_PROCESSOR})
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND processor STREQUAL x86_64)
  set(processor i686)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
endif()
set(CPACK_PACKAGE_FILE_NAME
    ${PROJECT_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${processor})
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
                                                GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The plug-in libinmem.nsp.so keeps CIM classes and instances in memory and
answers look-ups, hierarchy walks and associations. The program vyrhost fills
it with the hardware, file systems and network ports of this machine and
prints them.
With the headers, the library libvyrcore.so and a CMake package for hosts and
collectors of one's own, which also need the Boost headers.")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cmake, g++, libboost-dev (>= 1.74), make")
# The dependencies come from what the programs link to; one library of those is the package's own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
