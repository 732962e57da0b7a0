#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// A word, text, number or mark of a query.
struct TQueryToken {
  enum class EKind : unsigned char { kWord, kText, kNumber, kMark, kEnd };

  EKind kind = EKind::kEnd;
  std::string text;  ///< of a text what stands between its quotes, without escapes
};

/// A query in its parts, one after another; after the last come endless empty ones.
class TQueryTokens {
 public:
  /// Throws a TCimFailure of an invalid query where a part is none.
  explicit TQueryTokens(const std::string& query);

  const TQueryToken& Peek() const { return tokens_[next_]; }
  /// The next one, which is then behind.
  TQueryToken Take();
  /// Takes the next one if it is that word, in any letter case, or that mark.
  bool Accept(const char* text);
  /// Takes the next one, which must be a word.
  std::string TakeWord();
  bool IsAtEnd() const { return Peek().kind == TQueryToken::EKind::kEnd; }

 private:
  std::vector<TQueryToken> tokens_;
  std::size_t next_ = 0;
};

/// Says that a query is none.
[[noreturn]] void FailQuery(const std::string& why);

}  // namespace NZELVYR20
