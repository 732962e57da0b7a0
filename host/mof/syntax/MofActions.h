#pragma once

#include <string_view>

#include "MofGrammar.h"
#include "TMofBuilder.h"

/// Which of the grammar's rules tell the builder what.
namespace NZELVYR20::MofGrammar {

template <void (TMofBuilder::*kMethod)()>
struct TTell {
  static void apply0(TMofBuilder& builder) { (builder.*kMethod)(); }
};

/// With the text that the rule matched.
template <auto kMethod>
struct TGive {
  template <class TInput>
  static void apply(const TInput& input, TMofBuilder& builder) {
    (builder.*kMethod)(std::string_view(input.begin(), input.size()));
  }
};

template <void (*kRefusal)(std::string_view)>
struct TRefuse {
  template <class TInput>
  static void apply(const TInput& input, TMofBuilder&) {
    kRefusal(std::string_view(input.begin(), input.size()));
  }
};

template <class TRule>
struct TAction : peg::nothing<TRule> {};

template <>
struct TAction<TGap> : TGive<&TMofBuilder::PassGap> {};
template <>
struct TAction<TOpenComment> : TRefuse<&TMofBuilder::RefuseOpenComment> {};
template <>
struct TAction<TName> : TGive<&TMofBuilder::ReadName> {};
template <>
struct TAction<TPlainText> : TGive<&TMofBuilder::AddPlainText> {};
template <>
struct TAction<TKnownEscape> : TGive<&TMofBuilder::AddKnownEscape> {};
template <>
struct TAction<THexEscape> : TGive<&TMofBuilder::AddHexEscape> {};
template <>
struct TAction<TUnknownEscape> : TGive<&TMofBuilder::AddUnknownEscape> {};
template <>
struct TAction<TOpenText> : TRefuse<&TMofBuilder::RefuseOpenText> {};
template <>
struct TAction<TClosedText> : TGive<&TMofBuilder::EndPiece> {};
template <>
struct TAction<TText> : TGive<&TMofBuilder::EndText> {};
template <>
struct TAction<TDecimal> : TGive<&TMofBuilder::ReadDecimal> {};
template <>
struct TAction<THexadecimal> : TGive<&TMofBuilder::ReadHexadecimal> {};
template <>
struct TAction<TOctal> : TGive<&TMofBuilder::ReadOctal> {};
template <>
struct TAction<TBinary> : TGive<&TMofBuilder::ReadBinary> {};
template <>
struct TAction<TReal> : TGive<&TMofBuilder::ReadReal> {};
template <>
struct TAction<TNoNumber> : TRefuse<&TMofBuilder::RefuseNumber> {};
template <>
struct TAction<TCharacterItself> : TGive<&TMofBuilder::ReadCharacter> {};
template <>
struct TAction<TCharacterKnownEscape> : TGive<&TMofBuilder::ReadKnownEscape> {};
template <>
struct TAction<TCharacterHexEscape> : TGive<&TMofBuilder::ReadHexEscape> {};
template <>
struct TAction<TCharacter> : TGive<&TMofBuilder::EndCharacter> {};
template <>
struct TAction<TNull> : TGive<&TMofBuilder::ReadNull> {};
template <>
struct TAction<TTrue> : TGive<&TMofBuilder::ReadTrue> {};
template <>
struct TAction<TFalse> : TGive<&TMofBuilder::ReadFalse> {};
template <>
struct TAction<TAliasValue> : TGive<&TMofBuilder::EndAlias> {};
template <>
struct TAction<TScalar> : TTell<&TMofBuilder::EndScalar> {};
template <>
struct TAction<TArrayOpen> : TGive<&TMofBuilder::BeginArray> {};
template <>
struct TAction<TElement> : TTell<&TMofBuilder::EndElement> {};
template <>
struct TAction<TTypeWord> : TTell<&TMofBuilder::ReadTypeWord> {};
template <>
struct TAction<TReferenceMark> : TTell<&TMofBuilder::ReadReferenceMark> {};
template <>
struct TAction<TFeatureType> : TTell<&TMofBuilder::EndType> {};
template <>
struct TAction<TParameterType> : TTell<&TMofBuilder::EndType> {};
template <>
struct TAction<TDeclaredType> : TTell<&TMofBuilder::ReadDeclaredType> {};
template <>
struct TAction<TArraySize> : TGive<&TMofBuilder::ReadArraySize> {};
template <>
struct TAction<TArrayMark> : TGive<&TMofBuilder::EndArrayMark> {};
template <>
struct TAction<TQualifierName> : TTell<&TMofBuilder::ReadQualifierName> {};
template <>
struct TAction<TQualifierValue> : TTell<&TMofBuilder::EndQualifierValue> {};
template <>
struct TAction<TFlavorWord> : TTell<&TMofBuilder::ReadFlavor> {};
template <>
struct TAction<TClassName> : TTell<&TMofBuilder::ReadClassName> {};
template <>
struct TAction<TSuperClassName> : TTell<&TMofBuilder::ReadSuperClass> {};
template <>
struct TAction<TFeatureName> : TTell<&TMofBuilder::ReadFeatureName> {};
template <>
struct TAction<TProperty> : TTell<&TMofBuilder::EndProperty> {};
template <>
struct TAction<TParametersOpen> : TTell<&TMofBuilder::BeginMethod> {};
template <>
struct TAction<TParameterName> : TTell<&TMofBuilder::ReadParameterName> {};
template <>
struct TAction<TParameter> : TTell<&TMofBuilder::EndParameter> {};
template <>
struct TAction<TMethod> : TTell<&TMofBuilder::EndMethod> {};
template <>
struct TAction<TClass> : TTell<&TMofBuilder::EndClass> {};
template <>
struct TAction<TInstanceClass> : TTell<&TMofBuilder::ReadInstanceClass> {};
template <>
struct TAction<TInstanceAlias> : TTell<&TMofBuilder::ReadInstanceAlias> {};
template <>
struct TAction<TAssignedName> : TTell<&TMofBuilder::ReadAssignedName> {};
template <>
struct TAction<TAssignment> : TTell<&TMofBuilder::EndAssignment> {};
template <>
struct TAction<TInstance> : TTell<&TMofBuilder::EndInstance> {};
template <>
struct TAction<TBodyBrace> : TGive<&TMofBuilder::ReadBodyBrace> {};
template <>
struct TAction<TNoSemicolon> : TTell<&TMofBuilder::MissSemicolon> {};
template <>
struct TAction<TDeclaredName> : TTell<&TMofBuilder::ReadDeclaredName> {};
template <>
struct TAction<TDeclaredScope> : TTell<&TMofBuilder::ReadDeclaredScope> {};
template <>
struct TAction<TDeclaredFlavor> : TTell<&TMofBuilder::ReadDeclaredFlavor> {};
template <>
struct TAction<TQualifierDeclaration> : TTell<&TMofBuilder::EndQualifierDeclaration> {};
template <>
struct TAction<TPragmaName> : TTell<&TMofBuilder::ReadPragmaName> {};
template <>
struct TAction<TPragmaArgument> : TGive<&TMofBuilder::ReadPragmaArgument> {};
template <>
struct TAction<TPragma> : TTell<&TMofBuilder::EndPragma> {};

}  // namespace NZELVYR20::MofGrammar
