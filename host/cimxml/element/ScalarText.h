#pragma once

#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The word of the protocol for a type or for that of an array's elements: that of strings for no
/// type, as methods without a result have it, and for references in arrays.
const char* XmlTypeOf(TCIMValue::TCIMType type);

/// The text of a value that is neither null nor an array, before anything is escaped.
std::string ScalarText(const TCIMValue& value);

/// A real, which ToString() wrote, as the protocol has it: with a point; or NaN, INF, -INF.
std::string RealText(std::string text);

/// A text as a value of that type, which is neither an array's nor a reference's. Numbers may have
/// a sign, "0x" and blanks around them, booleans any letter case. Throws TCimFailure of an invalid
/// parameter.
TCIMValue ReadScalar(TCIMValue::TCIMType type, const std::string& text);

}  // namespace NZELVYR20
