#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// The letters of names are those of ASCII in every locale; other bytes stay.
inline char FoldLetter(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// The same text for all names and keywords that differ in letter case only.
inline std::string FoldName(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), FoldLetter);
  return name;
}

/// Less than 0, 0 or more, as the folded names compare.
inline int CompareFolded(std::string_view left, std::string_view right) {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = static_cast<unsigned char>(FoldLetter(left[i])) -
                           static_cast<unsigned char>(FoldLetter(right[i]));
    if (difference != 0) return difference;
  }
  return static_cast<int>(left.size() > common) - static_cast<int>(right.size() > common);
}

}  // namespace NZELVYR20
