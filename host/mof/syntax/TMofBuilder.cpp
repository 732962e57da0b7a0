#include "TMofBuilder.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

#include "FoldName.h"
#include "MofQualifierWords.h"
#include "TMofSyntaxError.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

struct TDataType {
  std::string_view word;
  TType::ECIMType type;
};

constexpr TDataType kDataTypes[] = {
    {"boolean", TType::kBoolean}, {"char16", TType::kChar16}, {"datetime", TType::kDateTime},
    {"real32", TType::kReal32},   {"real64", TType::kReal64}, {"sint16", TType::kSInt16},
    {"sint32", TType::kSInt32},   {"sint64", TType::kSInt64}, {"sint8", TType::kSInt8},
    {"string", TType::kString},   {"uint16", TType::kUInt16}, {"uint32", TType::kUInt32},
    {"uint64", TType::kUInt64},   {"uint8", TType::kUInt8},   {"void", TType::kNone},
};

/// Words that nobody knows are said and left out.
void Add(bool isKnown, const char* kind, const TMofName& word, TMofDiagnostics& diagnostics,
         std::vector<TMofName>& words) {
  if (isKnown) return words.push_back(word);
  diagnostics.Warning(word.GetPlace(), "unknown " + std::string(kind) + " " + QuoteMof(word.text));
}

void AddFlavor(const TMofName& word, TMofDiagnostics& diagnostics, std::vector<TMofName>& words) {
  const auto found = FindMofFlavor(word.GetText());
  const auto contradicts = [&](const auto& other) {
    return found && other && found->flavor == other->flavor && found->isSet != other->isSet;
  };
  for (const TMofName& before : words) {
    if (!contradicts(FindMofFlavor(before.GetText()))) continue;
    diagnostics.Warning(word.GetPlace(), "the flavor " + word.GetText() + " contradicts " +
                                             before.GetText() + "; the later one counts");
  }
  Add(found.has_value(), "flavor", word, diagnostics, words);
}

[[noreturn]] void Refuse(const TMofPlace& place, std::string text) {
  throw TMofSyntaxError{place.byte, std::move(text)};
}

}  // namespace

void TMofBuilder::Reset() {
  ForgetLiteral();
  value_.reset();
  qualifiers_.clear();
  class_ = {};
  instance_ = {};
  qualifierDeclaration_ = {};
  pragma_ = {};
}

void TMofBuilder::KeepUnreadableClass() {
  if (class_.name.text.empty()) return;
  TMofClass unreadable;
  unreadable.name = std::exchange(class_.name, {});
  unreadable.isUnreadable = true;
  declarations_.emplace_back(std::move(unreadable));
}

std::vector<TMofQualifier> TMofBuilder::TakeQualifiers() { return std::exchange(qualifiers_, {}); }

std::optional<TMofValue> TMofBuilder::TakeValue() { return std::exchange(value_, std::nullopt); }

TMofBuilder::TElement TMofBuilder::TakeElement() {
  return {elementName_, std::exchange(type_, {}), TakeQualifiers()};
}

// Values

void TMofBuilder::EndScalar() { value_.emplace(GetLiteral()); }

void TMofBuilder::BeginArray(std::string_view brace) { value_.emplace(TMofPlace{brace.data()}); }

void TMofBuilder::EndElement() { value_->Append(GetLiteral()); }

// Types

void TMofBuilder::ReadTypeWord() {
  typeWord_ = GetName();
  type_ = {};
  type_.place = typeWord_.GetPlace();
}

void TMofBuilder::ReadReferenceMark() {
  type_.type = TType::kReference;
  type_.referencedClass = typeWord_;
}

void TMofBuilder::EndType() {
  if (type_.type == TType::kReference) return;
  const auto* const found = std::find_if(
      std::begin(kDataTypes), std::end(kDataTypes),
      [word = FoldName(typeWord_.GetText())](const TDataType& one) { return one.word == word; });
  if (found == std::end(kDataTypes)) {
    Refuse(typeWord_.GetPlace(), "unknown type " + QuoteMof(typeWord_.text));
  }
  type_.type = found->type;
}

void TMofBuilder::ReadDeclaredType() {
  ReadTypeWord();
  EndType();
  RequireTypeOfValue();
}

/// Methods alone may come without a result.
void TMofBuilder::RequireTypeOfValue() const {
  if (type_.type == TType::kNone) Refuse(type_.place, "only a method can be void");
}

void TMofBuilder::ReadArraySize(std::string_view digits) {
  std::uint64_t size = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), size).ec != std::errc()) {
    Refuse({digits.data()}, QuoteMof(digits) + " does not fit into 64 bits");
  }
  type_.arraySize = size;
}

void TMofBuilder::EndArrayMark(std::string_view mark) {
  RequireTypeOfValue();
  if (type_.type.IsArray()) Refuse({mark.data()}, "there are no arrays of arrays");
  type_.type = TType::ArrayOf(type_.type);
}

// Qualifiers

void TMofBuilder::ReadQualifierName() { qualifiers_.push_back({GetName(), {}, {}}); }
void TMofBuilder::EndQualifierValue() { qualifiers_.back().value = TakeValue(); }

void TMofBuilder::ReadFlavor() {
  AddFlavor(GetName(), GetDiagnostics(), qualifiers_.back().flavors);
}

// Classes

void TMofBuilder::ReadClassName() {
  class_.name = GetName();
  class_.qualifiers = TakeQualifiers();
}

void TMofBuilder::ReadSuperClass() { class_.superClass = GetName(); }
void TMofBuilder::ReadFeatureName() { elementName_ = GetName(); }

void TMofBuilder::EndProperty() {
  RequireTypeOfValue();
  TElement element = TakeElement();
  class_.features.emplace_back(
      TMofProperty{element.name, element.type, TakeValue(), std::move(element.qualifiers)});
}

void TMofBuilder::BeginMethod() {
  TElement element = TakeElement();
  method_ = {element.name, element.type, {}, std::move(element.qualifiers)};
}

void TMofBuilder::ReadParameterName() { elementName_ = GetName(); }

void TMofBuilder::EndParameter() {
  RequireTypeOfValue();
  TElement element = TakeElement();
  method_.parameters.push_back({element.name, element.type, std::move(element.qualifiers)});
}

void TMofBuilder::EndMethod() { class_.features.emplace_back(std::move(method_)); }
void TMofBuilder::EndClass() { declarations_.emplace_back(std::exchange(class_, {})); }

// Instances

void TMofBuilder::ReadInstanceClass() {
  instance_.className = GetName();
  instance_.hasQualifiers = !TakeQualifiers().empty();
  instance_.assignments.reserve(assignmentCount_);
}

void TMofBuilder::ReadInstanceAlias() { instance_.alias = GetName(); }

void TMofBuilder::ReadAssignedName() {
  qualifiers_.clear();
  elementName_ = GetName();
}

void TMofBuilder::EndAssignment() {
  instance_.assignments.push_back({elementName_, std::move(*value_)});
  value_.reset();
}

void TMofBuilder::EndInstance() {
  instance_.assignments.shrink_to_fit();
  assignmentCount_ = instance_.assignments.size();
  if (declarations_.empty() || !std::holds_alternative<TMofInstanceRun>(declarations_.back())) {
    declarations_.emplace_back(TMofInstanceRun());
  }
  std::get<TMofInstanceRun>(declarations_.back()).push_back(std::exchange(instance_, {}));
}

// What both end with

void TMofBuilder::ReadBodyBrace(std::string_view brace) { bodyEnd_ = {brace.data()}; }

void TMofBuilder::MissSemicolon() {
  GetDiagnostics().Note(bodyEnd_, "there is no \";\" after this \"}\"");
}

// Declarations of qualifiers

void TMofBuilder::ReadDeclaredName() { qualifierDeclaration_.name = GetName(); }

void TMofBuilder::ReadDeclaredScope() {
  const TMofName word = GetName();
  const bool isKnown = FindMofScope(word.GetText()).has_value();
  Add(isKnown, "scope", word, GetDiagnostics(), qualifierDeclaration_.scopes);
}

void TMofBuilder::ReadDeclaredFlavor() {
  AddFlavor(GetName(), GetDiagnostics(), qualifierDeclaration_.flavors);
}

void TMofBuilder::EndQualifierDeclaration() {
  qualifierDeclaration_.type = std::exchange(type_, {});
  qualifierDeclaration_.defaultValue = TakeValue();
  declarations_.emplace_back(std::exchange(qualifierDeclaration_, {}));
}

// Directives

void TMofBuilder::ReadPragmaName() {
  pragma_.name = GetName();
  pragma_.argument.place = pragma_.name.GetPlace();
}

void TMofBuilder::ReadPragmaArgument(std::string_view text) {
  EndText(text);
  pragma_.argument = GetLiteral();
}

void TMofBuilder::EndPragma() { declarations_.emplace_back(std::exchange(pragma_, {})); }

}  // namespace NZELVYR20
