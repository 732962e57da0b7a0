#pragma once

#include <string>

namespace NZELVYR20 {

/// The same text for all names and keywords that differ in letter case only. Their letters are
/// those of ASCII in every locale; other bytes stay.
inline std::string FoldName(std::string name) {
  for (char& letter : name) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return name;
}

}  // namespace NZELVYR20
