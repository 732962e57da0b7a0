#pragma once

#include <string>
#include <vector>

#include "MofSyntax.h"
#include "TMofDiagnostics.h"
#include "TMofParser.h"

namespace NZELVYR20 {

/// Shows a syntax tree on one line: what was read, with types by number and texts between "|".
struct TSyntaxText {
  static std::string Show(const TMofLiteral& literal) {
    std::string number = (literal.isNegative ? "-" : "") + std::to_string(literal.number);
    switch (literal.kind) {
      case TMofLiteral::kNull:
        return "null";
      case TMofLiteral::kBoolean:
        return "bool " + number;
      case TMofLiteral::kInteger:
        return number;
      case TMofLiteral::kReal:
        return "real " + literal.text;
      case TMofLiteral::kCharacter:
        return "char " + number;
      case TMofLiteral::kText:
        return "|" + literal.text + "|";
      case TMofLiteral::kAlias:
        return "$" + literal.text;
    }
    return "?";
  }

  static std::string Show(const TMofValue& value) {
    const std::string all = Join(value.literals, " ");
    return value.isArray ? "{" + all + "}" : all;
  }

  static std::string Show(const TMofName& name) { return name.text; }

  static std::string Show(const TMofType& type) {
    return std::to_string(type.type) + ":" + type.referencedClass.text +
           (type.arraySize ? "[" + std::to_string(*type.arraySize) + "]" : "");
  }

  static std::string Show(const TMofQualifier& qualifier) {
    return qualifier.name.text + ShowDefault(qualifier.value) +
           (qualifier.flavors.empty() ? "" : ":" + Join(qualifier.flavors, ","));
  }

  template <class TElement>
  static std::string ShowElement(const TElement& element) {
    return ShowQualifiers(element.qualifiers) + Show(element.type) + element.name.text;
  }

  static std::string Show(const TMofParameter& parameter) { return ShowElement(parameter); }
  static std::string Show(const TMofProperty& property) {
    return ShowElement(property) + ShowDefault(property.defaultValue);
  }
  static std::string Show(const TMofMethod& method) {
    return ShowElement(method) + "(" + Join(method.parameters, ", ") + ")";
  }
  static std::string Show(const std::variant<TMofProperty, TMofMethod>& feature) {
    return std::visit([](const auto& one) { return Show(one); }, feature);
  }

  static std::string Show(const TMofClass& one) {
    return ShowQualifiers(one.qualifiers) + "class " + one.name.text +
           (one.superClass ? "<" + one.superClass->text : "") + "{" + Join(one.features, "; ") +
           "}";
  }
  static std::string Show(const TMofAssignment& one) {
    return (one.hasQualifiers ? "[]" : "") + one.property.text + "=" + Show(one.value);
  }
  static std::string Show(const TMofInstance& one) {
    return (one.hasQualifiers ? "[]" : "") + std::string("instance ") + one.className.text +
           (one.alias ? " $" + one.alias->text : "") + "{" + Join(one.assignments, "; ") + "}";
  }
  static std::string Show(const TMofQualifierDeclaration& one) {
    return "qualifier " + Show(one.type) + one.name.text + ShowDefault(one.defaultValue) + " (" +
           Join(one.scopes, ",") + ")(" + Join(one.flavors, ",") + ")";
  }
  static std::string Show(const TMofPragma& one) {
    return "#" + one.name.text + "|" + one.argument.text + "|";
  }
  static std::string Show(const TMofDeclaration& declaration) {
    return std::visit([](const auto& one) { return Show(one); }, declaration);
  }

  static std::string ShowDefault(const std::optional<TMofValue>& value) {
    return value ? "=" + Show(*value) : "";
  }
  static std::string ShowQualifiers(const std::vector<TMofQualifier>& qualifiers) {
    return qualifiers.empty() ? "" : "[" + Join(qualifiers, " ") + "]";
  }
  template <class TItem>
  static std::string Join(const std::vector<TItem>& items, const std::string& separator) {
    std::string all;
    for (const TItem& item : items) all += (&item == items.data() ? "" : separator) + Show(item);
    return all;
  }

  /// What the parser makes of a text, and then its messages, each with a line end before it.
  static std::string Parse(const std::string& text) {
    std::string messages;
    TMofDiagnostics diagnostics({},
                                [&](const std::string& message) { messages += "\n" + message; });
    const TMofSource source("t", text);
    return Join(TMofParser(diagnostics).Parse(source), " ") + messages;
  }
};

}  // namespace NZELVYR20
