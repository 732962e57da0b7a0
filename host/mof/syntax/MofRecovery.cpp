#include "MofRecovery.h"

#include <algorithm>
#include <optional>
#include <tao/pegtl.hpp>

namespace NZELVYR20 {
namespace {

namespace peg = tao::pegtl;

/// How declarations begin, and little else does.
struct TDeclarationBeginning
    : peg::sor<peg::seq<peg::one<'#'>, peg::star<peg::blank>, TAO_PEGTL_ISTRING("pragma")>,
               peg::seq<peg::sor<TAO_PEGTL_ISTRING("class"), TAO_PEGTL_ISTRING("qualifier"),
                                 peg::seq<TAO_PEGTL_ISTRING("instance"), peg::plus<peg::blank>,
                                          TAO_PEGTL_ISTRING("of")>>,
                        peg::plus<peg::blank>, peg::identifier_first>> {};

template <class TRule>
bool Matches(std::string_view text) {
  peg::memory_input<peg::tracking_mode::lazy, peg::eol::lf_crlf, const char*> input(
      text.data(), text.size(), "");
  return peg::parse<TRule>(input);
}

class TScanner {
 public:
  TScanner(std::string_view text, std::size_t start, std::size_t error)
      : text_(text), at_(start), error_(error) {}

  std::size_t Find() {
    while (!isFound_ && at_ < text_.size()) {
      at_ = std::min(text_.find_first_of("\"/{};\r\n", at_), text_.size());
      if (at_ < text_.size()) Pass(text_[at_]);
    }
    return at_;
  }

 private:
  static bool EndsLine(char byte) { return byte == '\n' || byte == '\r'; }

  void Pass(char mark) {
    if (mark == '"') return PassString();
    if (mark == '/') return PassComment();
    ++at_;
    if (mark == '{') ++depth_;
    if (mark == '}' && depth_ > 0) --depth_;
    if (mark == ';') isFound_ = depth_ == 0 && at_ > error_;
    if (EndsLine(mark)) isFound_ = at_ >= error_ && IsAtDeclaration();
  }

  void PassString() {
    ++at_;
    while (at_ < text_.size() && text_[at_] != '"' && !EndsLine(text_[at_])) {
      at_ += text_[at_] == '\\' && at_ + 1 < text_.size() && !EndsLine(text_[at_ + 1]) ? 2 : 1;
    }
    if (at_ < text_.size() && text_[at_] == '"') ++at_;
  }

  void PassComment() {
    const std::string_view opening = text_.substr(at_, 2);
    if (opening == "//") {
      at_ = std::min(text_.find_first_of("\r\n", at_), text_.size());
    } else if (opening == "/*") {
      PassBlockComment();
    } else {
      ++at_;
    }
  }

  /// One that never ends is left for the parser to say so. The last end is looked up once: what
  /// merely looks like such comments can be all over a long text.
  void PassBlockComment() {
    if (!lastCommentEnd_) lastCommentEnd_ = text_.rfind("*/");
    const bool ends = *lastCommentEnd_ != std::string_view::npos && *lastCommentEnd_ >= at_ + 2;
    isFound_ = !ends && at_ >= error_;
    if (!isFound_) at_ = ends ? text_.find("*/", at_ + 2) + 2 : at_ + 2;
  }

  /// Whatever surrounds it, except for qualifiers, which members have as well.
  bool IsAtDeclaration() const {
    if (depth_ == 0 && at_ < text_.size() && text_[at_] == '[') return true;
    return Matches<TDeclarationBeginning>(text_.substr(at_));
  }

  std::string_view text_;
  std::size_t at_;
  std::size_t error_;
  std::size_t depth_ = 0;
  bool isFound_ = false;
  std::optional<std::size_t> lastCommentEnd_;
};

}  // namespace

std::size_t FindNextDeclaration(std::string_view text, std::size_t start, std::size_t error) {
  return TScanner(text, start, error).Find();
}

bool HoldsDeclaration(std::string_view text) {
  using TRest = peg::sor<peg::plus<peg::identifier_other>, peg::any>;
  return Matches<peg::until<TDeclarationBeginning, TRest>>(text);
}

}  // namespace NZELVYR20
