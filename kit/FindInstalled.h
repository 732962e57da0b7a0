#pragma once

#include <initializer_list>
#include <optional>
#include <string>

namespace NZELVYR20 {

/// The first of the given files that is there. Each path is relative to the folder in which the
/// program stands and, where none is there, to that of libvyrcore.so: so what was installed with
/// either is found, wherever that was put.
std::optional<std::string> FindInstalled(std::initializer_list<std::string> files);

}  // namespace NZELVYR20
