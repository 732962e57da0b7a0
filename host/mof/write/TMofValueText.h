#pragma once

#include <cstddef>
#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// Values as MOF, in lines of eighty columns where words and names allow that.
///
/// Texts and characters keep what IsShown() and escape the rest. In a text, a byte NN that is no
/// UTF-8 becomes \xDCNN, which is half of a character to others and reads back as the byte here,
/// and NUL, which MOF forbids there, U+FFFD. A text in several pieces ends each but the last after
/// a blank or a line's end. Reals read back to the same value. Infinity and "not a number" have no
/// literal: NULL stands for them, with a comment that says so.
class TMofValueText {
 public:
  TMofValueText() = delete;

  /// Appends `head`, the value and `tail`: in one line where that fits, else with the value in
  /// lines of its own that are indented by `margin`. Arrays stand in braces.
  static void Append(std::string& text, std::string head, const TCIMValue& value, std::string tail,
                     std::size_t margin);
};

}  // namespace NZELVYR20
