#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "TCIMValue.h"
#include "TMofSource.h"

namespace NZELVYR20 {

/// What MOF says, declaration by declaration, before anything is looked up. Every node knows its
/// place, and has its text in the source, which has to outlive it.

/// A name or a word, as it stands there.
struct TMofName {
  std::string_view text;

  TMofPlace GetPlace() const { return {text.data()}; }
  std::string GetText() const { return std::string(text); }
};

/// One value of a list. Whether it suits a type is for those who know the type.
struct TMofLiteral {
  enum EKind : std::uint8_t { kNull, kBoolean, kInteger, kReal, kCharacter, kText, kAlias };

  EKind kind = kNull;
  bool isNegative = false;  ///< kInteger
  TMofPlace place;
  /// kText: with escapes resolved and neighbouring strings joined, in UTF-8, but for single bytes
  /// that escapes stand for; kAlias: the name after the "$"; kReal: the digits, with "." and "e"
  /// where they stand there.
  std::string_view text;
  std::uint64_t number = 0;  ///< kInteger: without sign; kCharacter: the code; kBoolean: 0 or 1
};

/// The value of a property, a qualifier or a default: a literal, or what stands in braces.
class TMofValue {
 public:
  explicit TMofValue(const TMofLiteral& literal) : content_(literal) {}
  /// An array without elements.
  explicit TMofValue(const TMofPlace& brace) : content_(TArray{brace, {}}) {}

  void Append(const TMofLiteral& element) {
    std::get<TArray>(content_).literals.push_back(element);
  }

  bool IsArray() const { return std::holds_alternative<TArray>(content_); }
  TMofPlace GetPlace() const {
    return IsArray() ? std::get<TArray>(content_).place : begin()->place;
  }
  bool IsEmpty() const { return begin() == end(); }
  std::size_t GetSize() const { return static_cast<std::size_t>(end() - begin()); }

  /// The literals, of which there is exactly one without braces.
  const TMofLiteral* begin() const {
    const auto* const array = std::get_if<TArray>(&content_);
    return array != nullptr ? array->literals.data() : &std::get<TMofLiteral>(content_);
  }
  const TMofLiteral* end() const {
    const auto* const array = std::get_if<TArray>(&content_);
    return begin() + (array != nullptr ? array->literals.size() : 1);
  }

 private:
  struct TArray {
    TMofPlace place;
    std::vector<TMofLiteral> literals;
  };

  std::variant<TMofLiteral, TArray> content_;
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
  TMofLiteral argument;
};

/// Instances that stand one after the other are one piece: there may be very many.
using TMofInstanceRun = std::vector<TMofInstance>;
using TMofDeclaration =
    std::variant<TMofPragma, TMofQualifierDeclaration, TMofClass, TMofInstanceRun>;

}  // namespace NZELVYR20
