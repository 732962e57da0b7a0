#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "TCIMValue.h"
#include "TMofSource.h"

namespace NZELVYR20 {

/// What MOF says, declaration by declaration, before anything is looked up. Every node knows its
/// place; the source has to outlive it.

/// A name or a word, as it stands there.
struct TMofName {
  std::string text;
  TMofPlace place;
};

/// One value of a list. Whether it suits a type is for those who know the type.
struct TMofLiteral {
  enum EKind { kNull, kBoolean, kInteger, kReal, kCharacter, kText, kAlias };

  EKind kind = kNull;
  bool isNegative = false;  ///< kInteger
  TMofPlace place;
  /// kText: with escapes resolved and neighbouring strings joined, in UTF-8, but
  /// for single bytes that escapes stand for; kAlias: the name
  /// after the "$"; kReal: the digits, with "." and "e" where they stand there.
  std::string text;
  std::uint64_t number = 0;  ///< kInteger: without sign; kCharacter: the code; kBoolean: 0 or 1
};

/// The value of a property, a qualifier or a default.
struct TMofValue {
  TMofPlace place;
  bool isArray = false;  ///< written in braces; else there is exactly one literal
  std::vector<TMofLiteral> literals;
};

struct TMofType {
  TCIMValue::TCIMType type;  ///< kReference with a class; arrays as the array type
  TMofName referencedClass;  ///< of a reference
  std::optional<std::uint64_t> arraySize;
  TMofPlace place;
};

/// A qualifier as it stands on an element.
struct TMofQualifier {
  TMofName name;
  std::optional<TMofValue> value;
  std::vector<TMofName> flavors;
};

struct TMofParameter {
  TMofName name;
  TMofType type;
  std::vector<TMofQualifier> qualifiers;
};

struct TMofProperty {
  TMofName name;
  TMofType type;
  std::optional<TMofValue> defaultValue;
  std::vector<TMofQualifier> qualifiers;
};

struct TMofMethod {
  TMofName name;
  TMofType type;
  std::vector<TMofParameter> parameters;
  std::vector<TMofQualifier> qualifiers;
};

struct TMofClass {
  TMofName name;
  std::optional<TMofName> superClass;
  std::vector<TMofQualifier> qualifiers;
  std::vector<std::variant<TMofProperty, TMofMethod>> features;  ///< in order of declaration
  bool isUnreadable = false;  ///< something in it is wrong, of which an error was said
};

/// One line of an instance.
struct TMofAssignment {
  TMofName property;
  TMofValue value;
  bool hasQualifiers = false;
};

struct TMofInstance {
  TMofName className;
  std::optional<TMofName> alias;  ///< without the "$"
  bool hasQualifiers = false;
  std::vector<TMofAssignment> assignments;
};

struct TMofQualifierDeclaration {
  TMofName name;
  TMofType type;
  std::optional<TMofValue> defaultValue;
  std::vector<TMofName> scopes;
  std::vector<TMofName> flavors;
};

/// A compiler directive, such as #pragma include ("file.mof").
struct TMofPragma {
  TMofName name;
  TMofName argument;
};

using TMofDeclaration = std::variant<TMofPragma, TMofQualifierDeclaration, TMofClass, TMofInstance>;

}  // namespace NZELVYR20
