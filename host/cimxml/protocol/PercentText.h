#pragma once

#include <string>
#include <string_view>

namespace NZELVYR20 {

/// A text with "%2F" and the like made the characters that they stand for; what is no such code
/// stays.
std::string DecodePercent(std::string_view text);

/// A text as a header holds it: all but letters, digits and "-._~" in codes.
std::string EncodePercent(std::string_view text);

}  // namespace NZELVYR20
