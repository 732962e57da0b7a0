#include "NormalizedNames.h"

#include <array>

#include "Failures.h"
#include "Names.h"

namespace NZELVYR20 {

namespace {

/// What each character of names folds to; null for those that are of no name.
constexpr auto kFolded = [] {
  std::array<char, 256> folded{};
  for (unsigned char character = 0; character < 128; ++character) {
    const char part = static_cast<char>(character);
    if (IsNamePart(part)) folded[character] = FoldCharacter(part);
  }
  return folded;
}();

}  // namespace

/// Every look-up begins here, so each character is looked at once.
std::string NormalizeName(const std::string& name) {
  std::string folded(name);
  bool isName = name.empty() || IsNameStart(name.front());
  for (char& character : folded) {
    character = kFolded[static_cast<unsigned char>(character)];
    isName = isName && character != '\0';
  }
  if (!isName) {
    LogValidationFailure("Inmem: CIM name '" + name + "' is invalid");
    throw Failure::InvalidName();
  }
  return folded;
}

bool IsSameName(const std::string& left, const std::string& right) {
  const std::string normalizedLeft = NormalizeName(left);
  return normalizedLeft == NormalizeName(right);
}

bool IsNameLess(const std::string& left, const std::string& right) {
  const std::string normalizedLeft = NormalizeName(left);
  return normalizedLeft < NormalizeName(right);
}

}  // namespace NZELVYR20
