# vyrhost finds its library, plug-in and schema by their places relative to its own, so that an
# installation can be moved as a whole. A multiarch libdir would break that.
set(CMAKE_INSTALL_LIBDIR lib)
include(GNUInstallDirs)

set(VYR_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/vyr)
set(VYR_INSTALL_KITDIR ${CMAKE_INSTALL_INCLUDEDIR}/vyr-kit)
set(VYR_INSTALL_PLUGINDIR ${CMAKE_INSTALL_LIBDIR}/vyr)
set(VYR_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/vyrcore)
