#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// A text as JSON; bytes that are no UTF-8 become U+FFFD. One that holds anything that a terminal
/// would obey is written in nothing but ASCII.
std::string JsonText(const std::string& text);
/// Without this a text literal would become a boolean.
std::string JsonText(const char* text);
/// "true" or "false".
std::string JsonText(bool value);

/// One value that is no array: integers, exact in all their 64 bits, and reals as numbers,
/// date-times in the CIM text form, references as the paths that lists print. Null, and reals that
/// JSON has no word for, are null.
std::string JsonScalar(const TCIMValue& value);

/// A value on one line, without blanks; elements of an array as JsonScalar() has them.
std::string JsonValue(const TCIMValue& value);

/// An object ("{}") or a list ("[]") of what is JSON already, on one line without blanks.
std::string JsonLine(const char* brackets, const std::vector<std::string>& items);

/// The same with each item on a line, for people; the last line is indented by `margin`.
std::string JsonBlock(const char* brackets, const std::vector<std::string>& items,
                      std::size_t margin);

/// The elements of an array that is not null, each as JsonScalar() has it.
std::vector<std::string> JsonScalars(const TCIMValue& array);

/// The texts, each as JSON.
std::vector<std::string> JsonTexts(const std::vector<std::string>& texts);

}  // namespace NZELVYR20
