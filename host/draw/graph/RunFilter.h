#pragma once

#include <string>
#include <vector>

namespace NZELVYR20 {

/// What a program prints that is given a text to read. It is looked for on the path and run without
/// a shell, for a minute at most. Throws TCommandError with the program's own words where it fails;
/// `package` is named where there is no such program.
std::string RunFilter(const std::vector<std::string>& command, const std::string& input,
                      const std::string& package);

}  // namespace NZELVYR20
