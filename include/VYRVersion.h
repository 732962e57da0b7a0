#pragma once

#include "VYRExport.h"

// The version of these headers. What stays within a MAJOR is said in CHANGELOG.md.
#define VYR_VERSION_MAJOR 1
#define VYR_VERSION_MINOR 0
#define VYR_VERSION_PATCH 0

/// As one number that grows with the version.
#define VYR_VERSION (VYR_VERSION_MAJOR * 10000 + VYR_VERSION_MINOR * 100 + VYR_VERSION_PATCH)

namespace NZELVYR20 {

/// VYR_VERSION of the libvyrcore.so in the process, which may be newer than the headers.
VYR_EXPORT int GetVersion() noexcept;

}  // namespace NZELVYR20
