#pragma once

#include "MofValueGrammar.h"

/// The grammar of MOF. No rule contains itself, so the depth of the stack is bounded, and what has
/// been read is never read again as something else: the first token decides. A rule that has to
/// match carries what a message calls it, in kExpected. The rules at whose end nothing but an
/// error is left, such as TOpenText, have actions that say so.
namespace NZELVYR20::MofGrammar {

// Types

struct TArraySize : peg::plus<peg::digit> {};
struct TArrayMarkEnd : TMark<']'> {
  static constexpr const char* kExpected = "\"]\" after the size of an array";
};
/// A "[" alone may begin the qualifiers of what follows.
struct TArrayMark : peg::seq<peg::at<TMark<'['>, peg::sor<peg::digit, peg::one<']'>>>, TMark<'['>,
                             peg::opt<TToken<TArraySize>>, peg::must<TArrayMarkEnd>> {};
struct TTypeWord : TNameToken {};
/// An element may be called "ref": only with something after it the word makes a reference.
struct TReferenceMark : peg::seq<TKeyword<TAO_PEGTL_ISTRING("ref")>,
                                 peg::at<peg::sor<peg::identifier_first, peg::one<'['>>>> {};
struct TType : peg::seq<TTypeWord, peg::opt<TReferenceMark>> {};

// Qualifiers of an element

struct TQualifierName : TNameToken {
  static constexpr const char* kExpected = "the name of a qualifier";
};
struct TQualifierValueEnd : TMark<')'> {
  static constexpr const char* kExpected = "\")\" after the value of a qualifier";
};
struct TQualifierValue
    : peg::sor<peg::seq<TMark<'('>, peg::must<TValue>, peg::must<TQualifierValueEnd>>, TArray> {};
struct TFlavorWord : TNameToken {
  static constexpr const char* kExpected = "a flavor after \":\"";
};
struct TQualifierFlavors : peg::seq<TMark<':'>, peg::must<TFlavorWord>, peg::star<TFlavorWord>> {};
struct TQualifier
    : peg::seq<peg::must<TQualifierName>, peg::opt<TQualifierValue>, peg::opt<TQualifierFlavors>> {
};
struct TQualifierListEnd : TMark<']'> {
  static constexpr const char* kExpected = "\",\" or \"]\" after a qualifier";
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
  static constexpr const char* kExpected = "\",\" or \")\" after a parameter";
};
struct TMethodEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" after a method";
};
struct TMethod
    : peg::seq<
          TParametersOpen,
          peg::sor<TMark<')'>, peg::seq<peg::list<TParameter, TComma>, peg::must<TParametersEnd>>>,
          peg::must<TMethodEnd>> {};

struct TPropertyEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" after a property";
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
  static constexpr const char* kExpected = "\"of\" after \"instance\"";
};
struct TInstanceClass : TNameToken {
  static constexpr const char* kExpected = "the name of a class";
};
struct TInstanceAlias : TAlias {};
struct TAssignedName : TNameToken {
  static constexpr const char* kExpected = "the name of a property or \"}\"";
};
struct TAssignmentMark : TMark<'='> {
  static constexpr const char* kExpected = "\"=\" after the name of a property";
};
struct TAssignmentEnd : TMark<';'> {
  static constexpr const char* kExpected = "\";\" after a value";
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
  static constexpr const char* kExpected = "\":\" and a type after the name of a qualifier";
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
  static constexpr const char* kExpected = "\";\" after the declaration of a qualifier";
};
struct TQualifierDeclaration
    : peg::seq<TKeyword<TAO_PEGTL_ISTRING("qualifier")>, peg::must<TDeclaredName>,
               peg::must<TDeclaredTypeMark>, peg::must<TDeclaredType>, peg::opt<TArrayMark>,
               peg::opt<TDefault>, peg::star<TComma, peg::must<TScopesOrFlavors>>,
               peg::must<TDeclaredEnd>> {};

// Directives

struct TPragmaWord : TKeyword<TAO_PEGTL_ISTRING("pragma")> {
  static constexpr const char* kExpected = "\"pragma\" after \"#\"";
};
struct TPragmaName : TNameToken {
  static constexpr const char* kExpected = "the name of a directive";
};
struct TPragmaArgument : TText {
  static constexpr const char* kExpected = "a text in quotes";
};
struct TPragmaArgumentEnd : TMark<')'> {
  static constexpr const char* kExpected = "\")\" after the text of a directive";
};
/// Directives of other makers come without an argument, or with more than one.
struct TPragmaMoreArguments : peg::star<TComma, peg::sor<TText, TNameToken>> {};
struct TPragma : peg::seq<TMark<'#'>, peg::must<TPragmaWord>, peg::must<TPragmaName>,
                          peg::opt<TMark<'('>, peg::must<TPragmaArgument>, TPragmaMoreArguments,
                                   peg::must<TPragmaArgumentEnd>>> {};

// The whole

struct TClassOrInstance : peg::sor<TClass, TInstance> {
  static constexpr const char* kExpected = "\"class\" or \"instance\" after qualifiers";
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
