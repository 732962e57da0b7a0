#include "TMofSyntaxError.h"

#include <algorithm>

#include "StartsCharacter.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kLongestPiece = 60;

/// The word that begins there, or else the one character.
std::string_view GetFirstToken(std::string_view rest) {
  const auto* end = std::find_if_not(rest.begin(), rest.end(), BelongsToWord);
  if (end == rest.begin()) end = std::find_if(end + 1, rest.end(), StartsCharacter);
  return rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
}

}  // namespace

bool BelongsToWord(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') || byte == '_';
}

std::string QuoteMof(std::string_view piece) {
  if (piece.size() <= kLongestPiece) return "\"" + std::string(piece) + "\"";
  std::size_t size = kLongestPiece;
  while (size > 0 && !StartsCharacter(piece[size])) --size;
  return "\"" + std::string(piece.substr(0, size)) + "...\"";
}

std::string DescribeMof(std::string_view rest) {
  if (rest.empty()) return "the end of the text";
  if (rest.front() == '"') return "a text";
  return QuoteMof(GetFirstToken(rest));
}

}  // namespace NZELVYR20
