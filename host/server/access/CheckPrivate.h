#pragma once

#include <string>

namespace NZELVYR20 {

/// Throws TCommandError where a file is not there, or where more than its owner and its group may
/// read it, or more than its owner write it.
void CheckPrivate(const std::string& file);

}  // namespace NZELVYR20
