#include "TQueryTokens.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "FoldName.h"
#include "TCimFailure.h"

namespace NZELVYR20 {
namespace {

using EKind = TQueryToken::EKind;

constexpr const char* kDigits = "0123456789";
constexpr const char* kWordStart = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_";
constexpr const char* kWordPart = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789";

bool IsAmong(const std::string& query, std::size_t place, const char* characters) {
  return place < query.size() &&
         std::string_view(characters).find(query[place]) != std::string_view::npos;
}

std::string TakeWhile(const std::string& query, std::size_t& place, const char* characters) {
  const std::size_t start = place;
  place = std::min(query.find_first_not_of(characters, start), query.size());
  return query.substr(start, place - start);
}

/// With a sign, a fraction and an exponent, each where it is there.
std::string TakeNumber(const std::string& query, std::size_t& place) {
  std::string number;
  if (IsAmong(query, place, "+-")) number += query[place++];
  number += TakeWhile(query, place, "0123456789.");
  if (!IsAmong(query, place, "eE")) return number;
  number += query[place++];
  if (IsAmong(query, place, "+-")) number += query[place++];
  return number + TakeWhile(query, place, kDigits);
}

/// In either kind of quotes; a quote within stands twice, or after a back-slash.
std::string TakeText(const std::string& query, std::size_t& place) {
  const char quote = query[place++];
  std::string text;
  for (; place < query.size(); ++place) {
    const bool hasNext = place + 1 < query.size();
    const char next = hasNext ? query[place + 1] : '\0';
    const bool isEscape = (query[place] == '\\' && (next == '\\' || next == quote)) ||
                          (query[place] == quote && next == quote);
    if (isEscape && hasNext) {
      ++place;
    } else if (query[place] == quote) {
      ++place;
      return text;
    }
    text += query[place];
  }
  FailQuery("a text does not end");
}

std::string TakeMark(const std::string& query, std::size_t& place) {
  for (const char* mark : {"<>", "!=", "<=", ">=", "<", ">", "=", "(", ")", ",", ".", "*"}) {
    if (query.compare(place, std::strlen(mark), mark) != 0) continue;
    place += std::strlen(mark);
    return mark;
  }
  FailQuery("not understood: " + query.substr(place, 1));
}

TQueryToken TakeToken(const std::string& query, std::size_t& place) {
  const bool hasSign = IsAmong(query, place, "+-") && IsAmong(query, place + 1, kDigits);
  if (hasSign || IsAmong(query, place, kDigits)) return {EKind::kNumber, TakeNumber(query, place)};
  if (IsAmong(query, place, "\"'")) return {EKind::kText, TakeText(query, place)};
  if (IsAmong(query, place, kWordStart)) return {EKind::kWord, TakeWhile(query, place, kWordPart)};
  return {EKind::kMark, TakeMark(query, place)};
}

}  // namespace

TQueryTokens::TQueryTokens(const std::string& query) {
  std::size_t place = 0;
  while (TakeWhile(query, place, " \t\r\n"), place < query.size()) {
    tokens_.push_back(TakeToken(query, place));
  }
  tokens_.emplace_back();
}

TQueryToken TQueryTokens::Take() {
  TQueryToken token = Peek();
  if (!IsAtEnd()) ++next_;
  return token;
}

bool TQueryTokens::Accept(const char* text) {
  const TQueryToken& token = Peek();
  const bool isMeant = token.kind != EKind::kText && CompareFolded(token.text, text) == 0;
  if (isMeant) Take();
  return isMeant;
}

std::string TQueryTokens::TakeWord() {
  if (Peek().kind != EKind::kWord) FailQuery("a name is missing before \"" + Peek().text + '"');
  return Take().text;
}

void FailQuery(const std::string& why) {
  throw TCimFailure(ECimStatus::kInvalidQuery, "query: " + why);
}

}  // namespace NZELVYR20
