#pragma once

#include <functional>
#include <string>

namespace NZELVYR20 {

/// The whole of a file.
std::string ReadFile(const std::string& path);
/// A file of the tests' data; `name` is below the folder of this program's tests.
std::string ReadData(const std::string& name);

/// Expects of each case in a data file what stands there. A case is what is given, on one line or
/// more, and each line that comes of it after "> "; an empty line ends it.
void CheckCases(const std::string& name,
                const std::function<std::string(const std::string& given)>& run);

}  // namespace NZELVYR20
