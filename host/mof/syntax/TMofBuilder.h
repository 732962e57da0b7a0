#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "MofSyntax.h"
#include "TMofLiteralBuilder.h"

namespace NZELVYR20 {

/// Makes declarations of what the parser meets, in the order of the text: each method says what
/// has just been read, and takes over what the ones before left for it.
class TMofBuilder : public TMofLiteralBuilder {
 public:
  using TMofLiteralBuilder::TMofLiteralBuilder;

  /// Forgets what has been read of a declaration that cannot be read on.
  void Reset();
  /// Keeps the name of a class that cannot be read on.
  void KeepUnreadableClass();
  /// Whether no declaration was read.
  bool IsEmpty() const { return declarations_.empty(); }
  std::vector<TMofDeclaration> TakeDeclarations() { return std::move(declarations_); }

  void EndScalar();
  void BeginArray(std::string_view brace);
  void EndElement();

  void ReadTypeWord();
  void ReadReferenceMark();
  void EndType();
  void ReadDeclaredType();
  void ReadArraySize(std::string_view digits);
  void EndArrayMark(std::string_view mark);

  void ReadQualifierName();
  void EndQualifierValue();
  void ReadFlavor();

  void ReadClassName();
  void ReadSuperClass();
  void ReadFeatureName();
  void EndProperty();
  void BeginMethod();
  void ReadParameterName();
  void EndParameter();
  void EndMethod();
  void EndClass();

  void ReadInstanceClass();
  void ReadInstanceAlias();
  void ReadAssignedName();
  void EndAssignment();
  void EndInstance();

  void ReadBodyBrace(std::string_view brace);
  void MissSemicolon();

  void ReadDeclaredName();
  void ReadDeclaredScope();
  void ReadDeclaredFlavor();
  void EndQualifierDeclaration();

  void ReadPragmaName();
  void ReadPragmaArgument(std::string_view text);
  void EndPragma();

 private:
  /// What properties, methods and parameters have in common.
  struct TElement {
    TMofName name;
    TMofType type;
    std::vector<TMofQualifier> qualifiers;
  };

  std::vector<TMofQualifier> TakeQualifiers();
  std::optional<TMofValue> TakeValue();
  TElement TakeElement();
  void RequireTypeOfValue() const;

  std::vector<TMofDeclaration> declarations_;

  // What waits for the element that it belongs to
  std::optional<TMofValue> value_;
  std::vector<TMofQualifier> qualifiers_;
  TMofName typeWord_;
  TMofType type_;
  TMofName elementName_;
  TMofPlace bodyEnd_;

  // What is being read
  TMofClass class_;
  TMofMethod method_;
  TMofInstance instance_;
  std::size_t assignmentCount_ = 0;  ///< of the last instance, and likely of the next
  TMofQualifierDeclaration qualifierDeclaration_;
  TMofPragma pragma_;
};

}  // namespace NZELVYR20
