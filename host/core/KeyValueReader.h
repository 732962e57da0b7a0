#pragma once

#include <stdexcept>
#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// Reads a key value that stands bare, as a value of the given type: a boolean, a number or the
/// code of a character. Throws std::invalid_argument, telling type and text, when it is none.
TCIMValue ReadBareKeyValue(TCIMValue::TCIMType type, const std::string& text);

/// Reads a key value that stood in quotes: a string, a character or a date-time. References are
/// left to the parser. Throws std::invalid_argument likewise.
TCIMValue ReadQuotedKeyValue(TCIMValue::TCIMType type, const std::string& text);

}  // namespace NZELVYR20
