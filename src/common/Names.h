#pragma once

#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <string>
#include <string_view>

namespace NZELVYR20 {

// The characters of names are those of ASCII, by their numbers and in every locale: what a name is
// must not hang on where the process runs. In Turkish the small form of I is another letter, and
// the built-in names would no longer be found under theirs.

constexpr bool IsBetween(char first, char character, char last) {
  return first <= character && character <= last;
}

constexpr bool IsNameStart(char character) {
  return character == '_' || IsBetween('a', character, 'z') || IsBetween('A', character, 'Z');
}

constexpr bool IsNamePart(char character) {
  return IsNameStart(character) || IsBetween('0', character, '9');
}

/// How names fold to lower case, character by character: A to Z, nothing else.
constexpr char FoldCharacter(char character) {
  return IsBetween('A', character, 'Z') ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Whether the part stands anywhere in the name, letter case counting.
inline bool HasPart(std::string_view name, std::string_view part) {
  return name.find(part) != std::string_view::npos;
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
