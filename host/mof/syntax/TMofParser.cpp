#include "TMofParser.h"

#include <string>
#include <string_view>

#include "MofActions.h"
#include "MofGrammar.h"
#include "MofRecovery.h"
#include "TMofBuilder.h"
#include "TMofSyntaxError.h"

namespace NZELVYR20 {
namespace {

namespace peg = tao::pegtl;
using TInput = peg::memory_input<peg::tracking_mode::lazy, peg::eol::lf_crlf, const char*>;

/// A text with more of them than this is no MOF, and is not worth the time.
constexpr std::size_t kMostErrors = 1000;

/// Says what a rule expected that has to match and does not.
template <class TRule>
struct TControl : peg::normal<TRule> {
  template <class TAnyInput>
  [[noreturn]] static void raise(const TAnyInput& input, const TMofBuilder& builder) {
    throw builder.MakeExpectation(TRule::kExpected, {input.current(), input.size()});
  }
};

/// Reads the declarations of one source, one after the other.
class TReading {
 public:
  TReading(const TMofSource& source, TMofDiagnostics& diagnostics)
      : source_(source),
        diagnostics_(diagnostics),
        builder_(source, diagnostics),
        text_(source.GetText()) {}

  std::vector<TMofDeclaration> ReadAll() {
    while (at_ < text_.size()) ReadOne();
    return builder_.TakeDeclarations();
  }

 private:
  void ReadOne() {
    try {
      Match<MofGrammar::TBetweenDeclarations>();
      if (at_ < text_.size()) Match<MofGrammar::TOneDeclaration>();
    } catch (const TMofSyntaxError& error) {
      Recover(error);
      builder_.Reset();
    }
  }

  template <class TRule>
  void Match() {
    TInput input(text_.data() + at_, text_.size() - at_, "");
    peg::parse<TRule, MofGrammar::TAction, TControl>(input, builder_);
    at_ = static_cast<std::size_t>(input.current() - text_.data());
  }

  void Recover(const TMofSyntaxError& error) {
    if (errorCount_ == 0 && builder_.IsEmpty() && !HoldsDeclaration(text_)) return RefuseAll();
    const auto where = static_cast<std::size_t>(error.where - text_.data());
    at_ = error.isAtTheEnd ? text_.size() : FindNextDeclaration(text_, at_, where);
    builder_.KeepUnreadableClass();
    diagnostics_.Error({error.where}, error.text);
    if (++errorCount_ < kMostErrors || at_ == text_.size()) return;
    diagnostics_.Error({text_.data() + at_}, "the rest is not read: too much is wrong");
    at_ = text_.size();
  }

  /// Nothing of a file is shown that somebody took for MOF, or wants to see.
  void RefuseAll() {
    at_ = text_.size();
    diagnostics_.FileError(source_.GetName(), "this is no MOF: nothing in it begins a declaration");
  }

  const TMofSource& source_;
  TMofDiagnostics& diagnostics_;
  TMofBuilder builder_;
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t errorCount_ = 0;
};

}  // namespace

std::vector<TMofDeclaration> TMofParser::Parse(const TMofSource& source) {
  diagnostics_.AddSource(source);
  return TReading(source, diagnostics_).ReadAll();
}

}  // namespace NZELVYR20
