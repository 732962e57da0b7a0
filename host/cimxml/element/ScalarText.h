#pragma once

#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The word of the protocol for a type or for that of an array's elements: that of strings for no
/// type, as methods without a result have it, and for references in arrays.
const std::string& XmlTypeOf(TCIMValue::TCIMType type);

/// The text of a value that is neither null nor an array, before anything is escaped.
std::string ScalarText(const TCIMValue& value);

/// A real, which ToString() wrote, as the protocol has it: with a point; or NaN, INF, -INF.
std::string RealText(std::string text);

/// A number or truth value without the blanks around it, of a number with "0x" its decimal digits;
/// empty where the text can be neither.
std::string BareText(const std::string& text);

}  // namespace NZELVYR20
