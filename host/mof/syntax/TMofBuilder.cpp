#include "TMofBuilder.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <utility>

#include "FoldName.h"
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

constexpr std::string_view kScopes[] = {"any",       "association", "class",    "indication",
                                        "method",    "parameter",   "property", "qualifier",
                                        "reference", "schema"};
constexpr std::string_view kFlavors[] = {"disableoverride", "enableoverride", "restricted",
                                         "tosubclass", "translatable"};
constexpr std::pair<std::string_view, std::string_view> kContradictions[] = {
    {"disableoverride", "enableoverride"}, {"restricted", "tosubclass"}};

template <class TWords>
bool Holds(const TWords& words, const std::string& word) {
  return std::find(std::begin(words), std::end(words), FoldName(word)) != std::end(words);
}

/// Words that nobody knows are said and left out.
template <class TWords>
void Add(const TWords& known, const char* kind, TMofName word, TMofDiagnostics& diagnostics,
         std::vector<TMofName>& words) {
  if (Holds(known, word.text)) return words.push_back(std::move(word));
  diagnostics.Warning(word.place, "unknown " + std::string(kind) + " " + QuoteMof(word.text));
}

void AddFlavor(TMofName word, TMofDiagnostics& diagnostics, std::vector<TMofName>& words) {
  const std::string folded = FoldName(word.text);
  for (const TMofName& before : words) {
    const std::string other = FoldName(before.text);
    const auto contradicts = [&](const auto& pair) {
      return (folded == pair.first && other == pair.second) ||
             (folded == pair.second && other == pair.first);
    };
    if (std::any_of(std::begin(kContradictions), std::end(kContradictions), contradicts)) {
      diagnostics.Warning(word.place, "the flavor " + word.text + " contradicts " + before.text +
                                          "; the later one counts");
    }
  }
  Add(kFlavors, "flavor", std::move(word), diagnostics, words);
}

[[noreturn]] void Refuse(const TMofPlace& place, std::string text) {
  throw TMofSyntaxError{place.source->GetText().data() + place.offset, std::move(text)};
}

}  // namespace

void TMofBuilder::Reset() {
  ForgetLiteral();
  value_.reset();
  qualifiers_.clear();
  class_ = {};
  instance_ = {};
  assignments_.clear();
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
  return {std::move(elementName_), std::exchange(type_, {}), TakeQualifiers()};
}

// Values

void TMofBuilder::EndScalar() {
  value_.emplace();
  value_->literals.push_back(TakeLiteral());
  value_->place = value_->literals.front().place;
}

void TMofBuilder::BeginArray(std::string_view brace) {
  value_ = TMofValue{GetPlace(brace), true, {}};
}

void TMofBuilder::EndElement() { value_->literals.push_back(TakeLiteral()); }

// Types

void TMofBuilder::ReadTypeWord() {
  typeWord_ = TakeName();
  type_ = {};
  type_.place = typeWord_.place;
}

void TMofBuilder::ReadReferenceMark() {
  type_.type = TType::kReference;
  type_.referencedClass = std::move(typeWord_);
}

void TMofBuilder::EndType() {
  if (type_.type == TType::kReference) return;
  const auto* const found = std::find_if(
      std::begin(kDataTypes), std::end(kDataTypes),
      [word = FoldName(typeWord_.text)](const TDataType& one) { return one.word == word; });
  if (found == std::end(kDataTypes)) {
    Refuse(typeWord_.place, "unknown type " + QuoteMof(typeWord_.text));
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
    Refuse(GetPlace(digits), QuoteMof(digits) + " does not fit into 64 bits");
  }
  type_.arraySize = size;
}

void TMofBuilder::EndArrayMark(std::string_view mark) {
  RequireTypeOfValue();
  if (type_.type.IsArray()) Refuse(GetPlace(mark), "there are no arrays of arrays");
  type_.type = TType::ArrayOf(type_.type);
}

// Qualifiers

void TMofBuilder::ReadQualifierName() { qualifiers_.push_back({TakeName(), {}, {}}); }
void TMofBuilder::EndQualifierValue() { qualifiers_.back().value = TakeValue(); }

void TMofBuilder::ReadFlavor() {
  AddFlavor(TakeName(), GetDiagnostics(), qualifiers_.back().flavors);
}

// Classes

void TMofBuilder::ReadClassName() {
  class_.name = TakeName();
  class_.qualifiers = TakeQualifiers();
}

void TMofBuilder::ReadSuperClass() { class_.superClass = TakeName(); }
void TMofBuilder::ReadFeatureName() { elementName_ = TakeName(); }

void TMofBuilder::EndProperty() {
  RequireTypeOfValue();
  TElement element = TakeElement();
  class_.features.emplace_back(TMofProperty{std::move(element.name), std::move(element.type),
                                            TakeValue(), std::move(element.qualifiers)});
}

void TMofBuilder::BeginMethod() {
  TElement element = TakeElement();
  method_ = {std::move(element.name), std::move(element.type), {}, std::move(element.qualifiers)};
}

void TMofBuilder::ReadParameterName() { elementName_ = TakeName(); }

void TMofBuilder::EndParameter() {
  RequireTypeOfValue();
  TElement element = TakeElement();
  method_.parameters.push_back(
      {std::move(element.name), std::move(element.type), std::move(element.qualifiers)});
}

void TMofBuilder::EndMethod() { class_.features.emplace_back(std::move(method_)); }
void TMofBuilder::EndClass() { declarations_.emplace_back(std::exchange(class_, {})); }

// Instances

void TMofBuilder::ReadInstanceClass() {
  instance_.className = TakeName();
  instance_.hasQualifiers = !TakeQualifiers().empty();
}

void TMofBuilder::ReadInstanceAlias() { instance_.alias = TakeName(); }

void TMofBuilder::ReadAssignedName() {
  assignments_.push_back({TakeName(), {}, !TakeQualifiers().empty()});
}

void TMofBuilder::EndAssignment() { assignments_.back().value = *TakeValue(); }

void TMofBuilder::EndInstance() {
  instance_.assignments.assign(std::move_iterator(assignments_.begin()),
                               std::move_iterator(assignments_.end()));
  declarations_.emplace_back(std::move(instance_));
}

// What both end with

void TMofBuilder::ReadBodyBrace(std::string_view brace) { bodyEnd_ = GetPlace(brace); }

void TMofBuilder::MissSemicolon() {
  GetDiagnostics().Note(bodyEnd_, "there is no \";\" after this \"}\"");
}

// Declarations of qualifiers

void TMofBuilder::ReadDeclaredName() { qualifierDeclaration_.name = TakeName(); }

void TMofBuilder::ReadDeclaredScope() {
  Add(kScopes, "scope", TakeName(), GetDiagnostics(), qualifierDeclaration_.scopes);
}

void TMofBuilder::ReadDeclaredFlavor() {
  AddFlavor(TakeName(), GetDiagnostics(), qualifierDeclaration_.flavors);
}

void TMofBuilder::EndQualifierDeclaration() {
  qualifierDeclaration_.type = std::exchange(type_, {});
  qualifierDeclaration_.defaultValue = TakeValue();
  declarations_.emplace_back(std::move(qualifierDeclaration_));
}

// Directives

void TMofBuilder::ReadPragmaName() {
  pragma_.name = TakeName();
  pragma_.argument.place = pragma_.name.place;
}

void TMofBuilder::ReadPragmaArgument(std::string_view text) {
  EndText(text);
  TMofLiteral literal = TakeLiteral();
  pragma_.argument = {std::move(literal.text), literal.place};
}

void TMofBuilder::EndPragma() { declarations_.emplace_back(std::move(pragma_)); }

}  // namespace NZELVYR20
