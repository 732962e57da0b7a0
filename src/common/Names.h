#pragma once

#include <algorithm>
#include <boost/container/small_vector.hpp>
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

/// A folded name for one look-up: names of common length cost no allocation.
class TFoldedName {
 public:
  explicit TFoldedName(std::string_view name) : text_(name.size(), boost::container::default_init) {
    std::transform(name.begin(), name.end(), text_.begin(), FoldCharacter);
  }

  operator std::string_view() const { return {text_.data(), text_.size()}; }

 private:
  boost::container::small_vector<char, 64> text_;
};

}  // namespace NZELVYR20
