#pragma once

#include <cctype>
#include <string>
#include <string_view>

namespace NZELVYR20 {

inline bool IsAscii(char character) { return static_cast<unsigned char>(character) < 128; }

/// How names fold to lower case, character by character; others than ASCII ones stay.
inline char FoldCharacter(char character) {
  const bool isUpper = character >= 'A' && character <= 'Z';
  return isUpper ? static_cast<char>(std::tolower(character)) : character;
}

inline std::string FoldName(std::string name) {
  for (char& character : name) character = FoldCharacter(character);
  return name;
}

/// Compares a name as it was given with one that is folded already: below, at or above 0.
inline int CompareFolded(std::string_view name, std::string_view folded) {
  const std::size_t common = name.size() < folded.size() ? name.size() : folded.size();
  for (std::size_t i = 0; i < common; ++i) {
    const auto left = static_cast<unsigned char>(FoldCharacter(name[i]));
    const auto right = static_cast<unsigned char>(folded[i]);
    if (left != right) return left < right ? -1 : 1;
  }
  if (name.size() == folded.size()) return 0;
  return name.size() < folded.size() ? -1 : 1;
}

}  // namespace NZELVYR20
