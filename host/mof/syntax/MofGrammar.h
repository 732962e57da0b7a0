#pragma once

#include <tao/pegtl.hpp>

/// The grammar of MOF. No rule contains itself, so the depth of the stack is bounded, and what has
/// been read is never read again as something else: the first token decides. A rule that has to
/// match carries what a message calls it, in kExpected. The rules at whose end nothing but an
/// error is left, such as TOpenText, have actions that say so.
namespace NZELVYR20::MofGrammar {

namespace peg = tao::pegtl;

// Between the tokens

struct TBlanks : peg::plus<peg::one<' ', '\n', '\r', '\t', '\v', '\f'>> {};
struct TLineComment : peg::seq<peg::string<'/', '/'>, peg::star<peg::not_one<'\n'>>> {};
struct TBlockComment : peg::seq<peg::string<'/', '*'>, peg::until<peg::string<'*', '/'>>> {};
struct TOpenComment : peg::string<'/', '*'> {};
struct TGap : peg::star<peg::sor<TBlanks, TLineComment, TBlockComment, TOpenComment>> {};

/// Every token takes along the gap behind it.
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
  static constexpr const char* kExpected = "an apostrophe behind one character";
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
  static constexpr const char* kExpected = "the name of an alias behind \"$\"";
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
  static constexpr const char* kExpected = "\",\" or \"}\" behind a value";
};
struct TArrayOpen : TMark<'{'> {};
struct TArray
    : peg::seq<TArrayOpen, peg::until<TMark<'}'>, peg::must<TElement>, peg::must<TElementEnd>>> {};
struct TValue : peg::sor<TArray, TScalar> {
  static constexpr const char* kExpected = "a value";
};
struct TDefault : peg::seq<TMark<'='>, peg::must<TValue>> {};

// Types

struct TArraySize : peg::plus<peg::digit> {};
struct TArrayMarkEnd : TMark<']'> {
  static constexpr const char* kExpected = "\"]\" behind the size of an array";
};
struct TArrayMark : peg::seq<TMark<'['>, peg::opt<TToken<TArraySize>>, peg::must<TArrayMarkEnd>> {};
struct TTypeWord : TNameToken {};
/// An element may be called "ref": only with something behind it the word makes a reference.
struct TReferenceMark : peg::seq<TKeyword<TAO_PEGTL_ISTRING("ref")>,
                                 peg::at<peg::sor<peg::identifier_first, peg::one<'['>>>> {};
struct TType : peg::seq<TTypeWord, peg::opt<TReferenceMark>> {};

// Qualifiers of an element

struct TQualifierName : TNameToken {
  static constexpr const char* kExpected = "the name of a qualifier";
};
struct TQualifierValueEnd : TMark<')'> {
  static constexpr const char* kExpected = "\")\" behind the value of a qualifier";
};
struct TQualifierValue
    : peg::sor<peg::seq<TMark<'('>, peg::must<TValue>, peg::must<TQualifierValueEnd>>, TArray> {};
struct TFlavorWord : TNameToken {
  static constexpr const char* kExpected = "a flavor behind \":\"";
};
struct TQualifierFlavors : peg::seq<TMark<':'>, peg::must<TFlavorWord>, peg::star<TFlavorWord>> {};
struct TQualifier
    : peg::seq<peg::must<TQualifierName>, peg::opt<TQualifierValue>, peg::opt<TQualifierFlavors>> {
};
struct TQualifierListEnd : TMark<']'> {
  static constexpr const char* kExpected = "\",\" or \"]\" behind a qualifier";
};
struct TQualifierList
    : peg::seq<TMark<'['>, peg::list<TQualifier, TComma>, peg::must<TQualifierListEnd>> {};

// What classes and instances share

struct TAliasWord : TKeyword<TAO_PEGTL_ISTRING("as")> {};
struct TBodyOpen : TMark<'{'> {
  static constexpr const char* kExpected = "\"{\"";
};
struct TBodyBrace : peg::one<'}'> {};
struct TBodyClose : TToken<TBodyBrace> {};
struct TNoSemicolon : peg::success {};
struct TBodyEnd : peg::sor<TMark<';'>, TNoSemicolon> {};

// Classes

struct TParameterType : TType {
  static constexpr const char* kExpected = "a parameter or \")\"";
};
struct TParameterName : TNameToken {
  static constexpr const char* kExpected = "the name of a parameter";
};
struct TParameter
    : peg::seq<peg::opt<TQualifierList>, peg::must<TParameterType>, peg::opt<TArrayMark>,
               peg::must<TParameterName>, peg::opt<TArrayMark>> {};
struct TParametersOpen : TMark<'('> {};
struct TParametersEnd : TMark<')'> {
  static constexpr const char* kExpected = "\",\" or \")\" behind a parameter";
};
struct TMethodEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" behind a method";
};
struct TMethod
    : peg::seq<
          TParametersOpen,
          peg::sor<TMark<')'>, peg::seq<peg::list<TParameter, TComma>, peg::must<TParametersEnd>>>,
          peg::must<TMethodEnd>> {};

struct TPropertyEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" behind a property";
};
struct TProperty : peg::seq<peg::opt<TDefault>, peg::must<TPropertyEnd>> {};

struct TFeatureType : TType {
  static constexpr const char* kExpected = "a property, a method or \"}\"";
};
struct TFeatureName : TNameToken {
  static constexpr const char* kExpected = "the name of a property or a method";
};
struct TFeature
    : peg::seq<peg::opt<TQualifierList>, peg::must<TFeatureType>, peg::opt<TArrayMark>,
               peg::must<TFeatureName>, peg::opt<TArrayMark>, peg::sor<TMethod, TProperty>> {};

struct TClassName : TNameToken {
  static constexpr const char* kExpected = "the name of a class";
};
struct TSuperClassName : TNameToken {
  static constexpr const char* kExpected = "the name of a superclass";
};
struct TClass : peg::seq<TKeyword<TAO_PEGTL_ISTRING("class")>, peg::must<TClassName>,
                         peg::opt<TAliasWord, peg::must<TAlias>>,
                         peg::opt<TMark<':'>, peg::must<TSuperClassName>>, peg::must<TBodyOpen>,
                         peg::until<TBodyClose, TFeature>, TBodyEnd> {};

// Instances

struct TOfWord : TKeyword<TAO_PEGTL_ISTRING("of")> {
  static constexpr const char* kExpected = "\"of\" behind \"instance\"";
};
struct TInstanceClass : TNameToken {
  static constexpr const char* kExpected = "the name of a class";
};
struct TInstanceAlias : TAlias {};
struct TAssignedName : TNameToken {
  static constexpr const char* kExpected = "the name of a property or \"}\"";
};
struct TAssignmentMark : TMark<'='> {
  static constexpr const char* kExpected = "\"=\" behind the name of a property";
};
struct TAssignmentEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" behind a value";
};
struct TAssignment
    : peg::seq<peg::opt<TQualifierList>, peg::must<TAssignedName>, peg::must<TAssignmentMark>,
               peg::must<TValue>, peg::must<TAssignmentEnd>> {};
struct TInstance
    : peg::seq<TKeyword<TAO_PEGTL_ISTRING("instance")>, peg::must<TOfWord>,
               peg::must<TInstanceClass>, peg::opt<TAliasWord, peg::must<TInstanceAlias>>,
               peg::must<TBodyOpen>, peg::until<TBodyClose, TAssignment>, TBodyEnd> {};

// Declarations of qualifiers

struct TDeclaredName : TNameToken {
  static constexpr const char* kExpected = "the name of a qualifier";
};
struct TDeclaredTypeMark : TMark<':'> {
  static constexpr const char* kExpected = "\":\" and a type behind the name of a qualifier";
};
struct TDeclaredType : TTypeWord {
  static constexpr const char* kExpected = "the type of a qualifier";
};
struct TWordsOpen : TMark<'('> {
  static constexpr const char* kExpected = "\"(\"";
};
struct TWordsEnd : TMark<')'> {
  static constexpr const char* kExpected = "\",\" or \")\"";
};
struct TDeclaredScope : TNameToken {
  static constexpr const char* kExpected = "a scope";
};
struct TDeclaredFlavor : TNameToken {
  static constexpr const char* kExpected = "a flavor";
};
struct TScopes : peg::seq<TKeyword<TAO_PEGTL_ISTRING("scope")>, peg::must<TWordsOpen>,
                          peg::list<peg::must<TDeclaredScope>, TComma>, peg::must<TWordsEnd>> {};
struct TFlavors : peg::seq<TKeyword<TAO_PEGTL_ISTRING("flavor")>, peg::must<TWordsOpen>,
                           peg::list<peg::must<TDeclaredFlavor>, TComma>, peg::must<TWordsEnd>> {};
struct TScopesOrFlavors : peg::sor<TScopes, TFlavors> {
  static constexpr const char* kExpected = "\"Scope\" or \"Flavor\"";
};
struct TDeclaredEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" behind the declaration of a qualifier";
};
struct TQualifierDeclaration
    : peg::seq<TKeyword<TAO_PEGTL_ISTRING("qualifier")>, peg::must<TDeclaredName>,
               peg::must<TDeclaredTypeMark>, peg::must<TDeclaredType>, peg::opt<TArrayMark>,
               peg::opt<TDefault>, peg::star<TComma, peg::must<TScopesOrFlavors>>,
               peg::must<TDeclaredEnd>> {};

// Directives

struct TPragmaWord : TKeyword<TAO_PEGTL_ISTRING("pragma")> {
  static constexpr const char* kExpected = "\"pragma\" behind \"#\"";
};
struct TPragmaName : TNameToken {
  static constexpr const char* kExpected = "the name of a directive";
};
struct TPragmaArgument : TText {
  static constexpr const char* kExpected = "a text in quotes";
};
struct TPragmaArgumentEnd : TMark<')'> {
  static constexpr const char* kExpected = "\")\" behind the text of a directive";
};
/// Directives of other makers come without an argument, or with more than one.
struct TPragmaMoreArguments : peg::star<TComma, peg::sor<TText, TNameToken>> {};
struct TPragma : peg::seq<TMark<'#'>, peg::must<TPragmaWord>, peg::must<TPragmaName>,
                          peg::opt<TMark<'('>, peg::must<TPragmaArgument>, TPragmaMoreArguments,
                                   peg::must<TPragmaArgumentEnd>>> {};

// The whole

struct TClassOrInstance : peg::sor<TClass, TInstance> {
  static constexpr const char* kExpected = "\"class\" or \"instance\" behind qualifiers";
};
struct TDeclaration
    : peg::sor<TClassOrInstance, peg::seq<TQualifierList, peg::must<TClassOrInstance>>,
               TQualifierDeclaration, TPragma> {
  static constexpr const char* kExpected =
      "a class, an instance, the declaration of a qualifier or a directive";
};
struct TOneDeclaration : peg::must<TDeclaration> {};
struct TBetweenDeclarations : peg::seq<TGap, peg::star<TMark<';'>>> {};

}  // namespace NZELVYR20::MofGrammar
