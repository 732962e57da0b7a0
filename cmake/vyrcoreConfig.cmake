# vyr::vyrcore  link a host or a collector to this: the core library and the contract's headers.
# vyr::kit      the same, with functions that spare most of the words.
# vyr::mof      MOF in and out; vyr::collectors, this machine's data. Both bring the kit.
# vyr::inmem    the plug-in, which a host loads: $<TARGET_FILE:vyr::inmem> is its path.
include(CMakeFindDependencyMacro)
find_dependency(Boost 1.74)
include(${CMAKE_CURRENT_LIST_DIR}/vyrcoreTargets.cmake)
