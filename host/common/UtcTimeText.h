#pragma once

#include <ctime>
#include <string>

namespace NZELVYR20 {

/// A moment in the form of ISO 8601, in universal time: "2026-11-22T14:41:07Z".
std::string UtcTimeText(std::time_t moment);

}  // namespace NZELVYR20
