#include "NaturalOrder.h"

#include <algorithm>
#include <cstddef>

#include "FoldName.h"

namespace NZELVYR20 {
namespace {

constexpr std::string_view kDecimals = "0123456789";

/// Takes the stretch of digits off the front, and gives it without zeros before it.
std::string_view TakeNumber(std::string_view& text) {
  const std::size_t length = std::min(text.find_first_not_of(kDecimals), text.size());
  std::string_view number = text.substr(0, length);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  text.remove_prefix(length);
  return number;
}

bool BeginsWithDigit(std::string_view text) {
  return !text.empty() && kDecimals.find(text.front()) != std::string_view::npos;
}

int CompareNumbers(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
  return left.compare(right);
}

/// Takes a number, or one letter, off both fronts and compares these.
int CompareFronts(std::string_view& left, std::string_view& right) {
  if (BeginsWithDigit(left) && BeginsWithDigit(right)) {
    return CompareNumbers(TakeNumber(left), TakeNumber(right));
  }
  const int difference = CompareFolded(left.substr(0, 1), right.substr(0, 1));
  left.remove_prefix(1);
  right.remove_prefix(1);
  return difference;
}

}  // namespace

int CompareNatural(std::string_view left, std::string_view right) {
  const int whole = left.compare(right);
  while (!left.empty() && !right.empty()) {
    const int difference = CompareFronts(left, right);
    if (difference != 0) return difference;
  }
  if (left.empty() != right.empty()) return left.empty() ? -1 : 1;
  return whole;
}

}  // namespace NZELVYR20
