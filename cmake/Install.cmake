include(CMakePackageConfigHelpers)

# What an installation consists of, without the tests.
add_custom_target(installed ALL DEPENDS vyrhost inmem vyr_kit vyr_mof
                                        vyr_collectors)

set_target_properties(vyr_contract PROPERTIES EXPORT_NAME contract)
install(TARGETS vyrhost)
install(TARGETS vyr_contract vyrcore EXPORT vyrcoreTargets)
install(TARGETS inmem EXPORT vyrcoreTargets LIBRARY DESTINATION ${VYR_INSTALL_PLUGINDIR})
install(DIRECTORY include/ DESTINATION ${VYR_INSTALL_INCLUDEDIR})

# vyr_install_library(<name> <header>...): vyr_<name>, as vyr::<name> also within the build, and what
# others may include of it.
function(vyr_install_library name)
  set_target_properties(vyr_${name} PROPERTIES EXPORT_NAME ${name})
  add_library(vyr::${name} ALIAS vyr_${name})
  install(TARGETS vyr_${name} EXPORT vyrcoreTargets INCLUDES DESTINATION ${VYR_INSTALL_KITDIR})
  install(FILES ${ARGN} DESTINATION ${VYR_INSTALL_KITDIR})
endfunction()

file(GLOB kit_headers CONFIGURE_DEPENDS kit/*.h)
list(FILTER kit_headers EXCLUDE REGEX NamedRefusal)
vyr_install_library(kit ${kit_headers})
vyr_install_library(common host/common/TWriteText.h)
vyr_install_library(mof host/mof/LoadMof.h host/mof/load/TMofOptions.h
                    host/mof/load/TMofReferenceClasses.h host/mof/load/TMofSummary.h
                    host/mof/write/TMofWriter.h)
vyr_install_library(collectors host/collectors/TMachineCollector.h)
add_library(vyr::vyrcore ALIAS vyrcore)
add_library(vyr::inmem ALIAS inmem)

install(EXPORT vyrcoreTargets NAMESPACE vyr:: DESTINATION ${VYR_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vyrcoreConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)

foreach(name IN ITEMS vyrcore vyr-kit)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
install(FILES cmake/vyrcoreConfig.cmake ${PROJECT_BINARY_DIR}/vyrcoreConfigVersion.cmake
        DESTINATION ${VYR_INSTALL_CMAKEDIR})

install(DIRECTORY schema DESTINATION ${CMAKE_INSTALL_DATADIR}/vyr
        FILES_MATCHING PATTERN *.mof)
install(FILES host/cli/completion/vyrhost.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME vyrhost)
install(FILES host/cli/completion/_vyrhost
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)

if(VYR_SERVER)
  install(FILES cmake/vyr.service DESTINATION ${CMAKE_INSTALL_LIBDIR}/systemd/system)
endif()
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN *.md PATTERN *.svg PATTERN *.png)
# The API reference, where scripts/package or scripts/docs has written it.
install(DIRECTORY build/docs/html DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md cmake/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# vyr_install_compressed(<file> <folder>): as Debian wants manual pages and change logs.
function(vyr_install_compressed file folder)
  cmake_path(GET file FILENAME name)
  set(compressed ${PROJECT_BINARY_DIR}/${name}.gz)
  add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${file} > ${compressed}
                     MAIN_DEPENDENCY ${file} VERBATIM)
  add_custom_target(compress_${name} DEPENDS ${compressed})
  add_dependencies(installed compress_${name})
  install(FILES ${compressed} DESTINATION ${folder})
endfunction()

vyr_install_compressed(${PROJECT_SOURCE_DIR}/cmake/debian/changelog ${CMAKE_INSTALL_DOCDIR})
vyr_install_compressed(${PROJECT_SOURCE_DIR}/docs/vyrhost.1 ${CMAKE_INSTALL_MANDIR}/man1)
