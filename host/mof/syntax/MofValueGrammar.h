#pragma once

#include <tao/pegtl.hpp>

/// The part of the grammar that makes tokens and values.
namespace NZELVYR20::MofGrammar {

namespace peg = tao::pegtl;

// Between the tokens

struct TBlanks : peg::plus<peg::one<' ', '\n', '\r', '\t', '\v', '\f'>> {};
struct TLineComment : peg::seq<peg::string<'/', '/'>, peg::star<peg::not_one<'\r', '\n'>>> {};
struct TBlockComment : peg::seq<peg::string<'/', '*'>, peg::until<peg::string<'*', '/'>>> {};
struct TOpenComment : peg::string<'/', '*'> {};
struct TGap : peg::star<peg::sor<TBlanks, TLineComment, TBlockComment, TOpenComment>> {};

/// Every token takes along the gap after it.
template <class TRule>
struct TToken : peg::seq<TRule, TGap> {};
template <char kMark>
struct TMark : TToken<peg::one<kMark>> {};
template <class TWord>
struct TKeyword : TToken<peg::seq<TWord, peg::not_at<peg::identifier_other>>> {};

struct TComma : TMark<','> {};
struct TName : peg::identifier {};
struct TNameToken : TToken<TName> {};

// Values

struct TPlainText : peg::plus<peg::not_one<'"', '\\'>> {};
struct TKnownEscape : peg::one<'b', 't', 'n', 'f', 'r', '"', '\'', '\\'> {};
struct THexEscape : peg::seq<peg::one<'x', 'X'>, peg::xdigit, peg::rep_opt<3, peg::xdigit>> {};
struct TUnknownEscape : peg::any {};
struct TEscape : peg::seq<peg::one<'\\'>, peg::sor<TKnownEscape, THexEscape, TUnknownEscape>> {};
struct TClosedText
    : peg::seq<peg::one<'"'>, peg::until<peg::one<'"'>, peg::sor<TPlainText, TEscape>>> {};
struct TOpenText : peg::one<'"'> {};
struct TText : peg::plus<peg::sor<TClosedText, TOpenText>, TGap> {};

struct TCharacterItself : peg::seq<peg::not_at<peg::one<'\'', '\n'>>, peg::utf8::any> {};
struct TCharacterKnownEscape : TKnownEscape {};
struct TCharacterHexEscape : THexEscape {};
struct TCharacterEscape : peg::sor<TCharacterKnownEscape, TCharacterHexEscape> {
  static constexpr const char* kExpected = "an escape that MOF knows";
};
struct TCharacterContent
    : peg::sor<peg::seq<peg::one<'\\'>, peg::must<TCharacterEscape>>, TCharacterItself> {
  static constexpr const char* kExpected = "a character between the apostrophes";
};
struct TCharacterEnd : peg::one<'\''> {
  static constexpr const char* kExpected = "an apostrophe after one character";
};
struct TCharacter
    : peg::seq<peg::one<'\''>, peg::must<TCharacterContent>, peg::must<TCharacterEnd>> {};

struct TSign : peg::opt<peg::one<'+', '-'>> {};
struct TNumberEnd : peg::not_at<peg::sor<peg::identifier_other, peg::one<'.', '+', '-'>>> {};
struct TExponent : peg::seq<peg::one<'e', 'E'>, TSign, peg::plus<peg::digit>> {};
struct TFraction : peg::seq<peg::one<'.'>, peg::plus<peg::digit>> {};
struct THexadecimal
    : peg::seq<TSign, peg::one<'0'>, peg::one<'x', 'X'>, peg::plus<peg::xdigit>, TNumberEnd> {};
struct TBinary : peg::seq<TSign, peg::plus<peg::one<'0', '1'>>, peg::one<'b', 'B'>, TNumberEnd> {};
struct TOctal : peg::seq<TSign, peg::one<'0'>, peg::star<peg::odigit>, TNumberEnd> {};
struct TDecimal : peg::seq<TSign, peg::range<'1', '9'>, peg::star<peg::digit>, TNumberEnd> {};
struct TReal : peg::seq<TSign,
                        peg::sor<peg::seq<peg::star<peg::digit>, TFraction, peg::opt<TExponent>>,
                                 peg::seq<peg::plus<peg::digit>, TExponent>>,
                        TNumberEnd> {};
struct TNoNumber : peg::plus<peg::sor<peg::identifier_other, peg::one<'.', '+', '-'>>> {};
struct TNumber : peg::seq<peg::at<peg::sor<peg::digit, peg::one<'.', '+', '-'>>>,
                          peg::sor<TDecimal, THexadecimal, TBinary, TOctal, TReal, TNoNumber>> {};

struct TNull : TKeyword<TAO_PEGTL_ISTRING("null")> {};
struct TTrue : TKeyword<TAO_PEGTL_ISTRING("true")> {};
struct TFalse : TKeyword<TAO_PEGTL_ISTRING("false")> {};

struct TAliasName : TNameToken {
  static constexpr const char* kExpected = "the name of an alias after \"$\"";
};
struct TAlias : peg::seq<peg::one<'$'>, peg::must<TAliasName>> {
  static constexpr const char* kExpected = "an alias, such as $Name";
};
struct TAliasValue : TAlias {};

struct TLiteral
    : peg::sor<TText, TToken<TNumber>, TNull, TTrue, TFalse, TAliasValue, TToken<TCharacter>> {};
struct TScalar : TLiteral {};
struct TElement : TLiteral {
  static constexpr const char* kExpected = "a value or \"}\"";
};
struct TElementEnd : peg::sor<TComma, peg::at<peg::one<'}'>>> {
  static constexpr const char* kExpected = "\",\" or \"}\" after a value";
};
struct TArrayOpen : TMark<'{'> {};
struct TArray
    : peg::seq<TArrayOpen, peg::until<TMark<'}'>, peg::must<TElement>, peg::must<TElementEnd>>> {};
struct TValue : peg::sor<TArray, TScalar> {
  static constexpr const char* kExpected = "a value";
};
struct TDefault : peg::seq<TMark<'='>, peg::must<TValue>> {};

}  // namespace NZELVYR20::MofGrammar
