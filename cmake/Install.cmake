include(CMakePackageConfigHelpers)

# What an installation consists of, without the tests.
add_custom_target(installed ALL DEPENDS vyrhost inmem vyr_kit)

set_target_properties(vyr_contract PROPERTIES EXPORT_NAME contract)
install(TARGETS vyrhost)
install(TARGETS vyr_contract vyrcore vyr_kit EXPORT vyrcoreTargets)
install(TARGETS inmem EXPORT vyrcoreTargets LIBRARY DESTINATION ${VYR_INSTALL_PLUGINDIR})
install(DIRECTORY include/ DESTINATION ${VYR_INSTALL_INCLUDEDIR})
install(DIRECTORY kit/ DESTINATION ${VYR_INSTALL_KITDIR}
        FILES_MATCHING PATTERN *.h
        PATTERN NamedRefusal.h EXCLUDE)

install(EXPORT vyrcoreTargets NAMESPACE vyr:: DESTINATION ${VYR_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vyrcoreConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES cmake/vyrcoreConfig.cmake ${PROJECT_BINARY_DIR}/vyrcoreConfigVersion.cmake
        DESTINATION ${VYR_INSTALL_CMAKEDIR})

install(DIRECTORY schema DESTINATION ${CMAKE_INSTALL_DATADIR}/vyr
        FILES_MATCHING PATTERN *.mof)
install(FILES host/cli/completion/vyrhost.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME vyrhost)

install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN *.md)
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
