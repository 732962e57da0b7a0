#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "MofSyntax.h"
#include "TMofDiagnostics.h"
#include "TMofSyntaxError.h"

namespace NZELVYR20 {

/// Makes literals of what the parser meets. Every piece that it is given lies in the source's
/// text, which is how it knows the place.
class TMofLiteralBuilder {
 public:
  TMofLiteralBuilder(const TMofSource& source, TMofDiagnostics& diagnostics)
      : source_(source), diagnostics_(diagnostics) {}

  void PassGap(std::string_view gap) { gap_ = gap; }
  /// What is wrong where something else was expected than stands there: `rest`, to the text's end.
  TMofSyntaxError MakeExpectation(const char* expected, std::string_view rest) const;

  [[noreturn]] static void RefuseOpenComment(std::string_view opening);
  void ReadName(std::string_view name);

  // The content of a text, piece by piece; escapes come without their back-slash.
  void AddPlainText(std::string_view text);
  void AddKnownEscape(std::string_view escape);
  void AddHexEscape(std::string_view escape);
  void AddUnknownEscape(std::string_view escape);
  [[noreturn]] static void RefuseOpenText(std::string_view opening);

  void EndPiece(std::string_view quoted) { piece_ = quoted; }
  void EndText(std::string_view text);
  void ReadDecimal(std::string_view digits);
  void ReadHexadecimal(std::string_view digits);
  void ReadOctal(std::string_view digits);
  void ReadBinary(std::string_view digits);
  void ReadReal(std::string_view digits);
  [[noreturn]] static void RefuseNumber(std::string_view text);
  void ReadCharacter(std::string_view character);
  void ReadKnownEscape(std::string_view escape);
  void ReadHexEscape(std::string_view escape);
  void EndCharacter(std::string_view character);
  void ReadNull(std::string_view word);
  void ReadTrue(std::string_view word);
  void ReadFalse(std::string_view word);
  void EndAlias(std::string_view alias);

 protected:
  const TMofName& GetName() const { return name_; }
  const TMofLiteral& GetLiteral() const { return literal_; }
  TMofDiagnostics& GetDiagnostics() { return diagnostics_; }

  /// Drops what an unreadable declaration left behind.
  void ForgetLiteral();

 private:
  void SetLiteral(TMofLiteral::EKind kind, std::string_view piece);
  void ReadInteger(std::string_view digits, int base);
  void AddCode(std::uint32_t code);
  /// What has been read of a text that is not what stands there.
  std::string& GatherText();
  void FlushSurrogate();

  const TMofSource& source_;
  TMofDiagnostics& diagnostics_;
  std::string_view gap_;    ///< after the last token
  std::string_view piece_;  ///< the last that stood in quotes, with these
  TMofName name_;
  TMofLiteral literal_;
  std::string_view plainText_;  ///< all of a text so far; else it is gathered
  std::string text_;
  /// The first half of a pair whose second half has not come yet; 0 where there is none.
  std::uint32_t highSurrogate_ = 0;
  TMofPlace surrogatePlace_;
};

}  // namespace NZELVYR20
