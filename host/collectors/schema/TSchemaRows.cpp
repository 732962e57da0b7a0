#include "TSchemaRows.h"

namespace NZELVYR20 {

TPropertyRow::TPropertyRow(std::string propertyName, TCIMValue::TCIMType propertyType,
                           const char* description)
    : name(std::move(propertyName)), type(propertyType), qualifiers{{"Description", description}} {}

TPropertyRow TPropertyRow::Reference(std::string name, std::string className,
                                     const char* description) {
  TPropertyRow row(std::move(name), TCIMValue::TCIMType::kReference, description);
  row.referencedClass = std::move(className);
  return row;
}

TPropertyRow TPropertyRow::Key() const { return With("Key", true); }

TPropertyRow TPropertyRow::Override() const { return With("Override", name); }

TPropertyRow TPropertyRow::In(const char* unit) const { return With("Units", unit); }

TPropertyRow TPropertyRow::Meaning(const TMeanings& meanings) const {
  std::vector<TCIMValue> numbers;
  std::vector<TCIMValue> texts;
  for (const auto& [number, text] : meanings) {
    numbers.emplace_back(std::to_string(number));
    texts.emplace_back(text);
  }
  return With("ValueMap", TCIMValue::Array(TCIMValue::TCIMType::kString, std::move(numbers)))
      .With("Values", TCIMValue::Array(TCIMValue::TCIMType::kString, std::move(texts)));
}

TPropertyRow TPropertyRow::With(const char* qualifier, const TCIMValue& value) const {
  TPropertyRow row = *this;
  row.qualifiers.push_back({qualifier, value});
  return row;
}

TMethodRow::TMethodRow(std::string methodName, TCIMValue::TCIMType type, const char* description,
                       std::vector<TPropertyRow> methodParameters)
    : name(std::move(methodName)),
      returnType(type),
      qualifiers{{"Description", description}},
      parameters(std::move(methodParameters)) {}

TClassRow::TClassRow(std::string className, std::string superClassName, EKind kind,
                     const char* description, std::vector<TPropertyRow> classProperties)
    : name(std::move(className)),
      superClass(std::move(superClassName)),
      qualifiers{{"Description", description}},
      properties(std::move(classProperties)) {
  if (kind == kAssociation || kind == kAbstractAssociation)
    qualifiers.push_back({"Association", true});
  if (kind == kAbstract || kind == kAbstractAssociation) qualifiers.push_back({"Abstract", true});
}

TClassRow TClassRow::With(const char* qualifier, const TCIMValue& value) const {
  TClassRow row = *this;
  row.qualifiers.push_back({qualifier, value});
  return row;
}

TClassRow TClassRow::Does(TMethodRow method) const {
  TClassRow row = *this;
  row.methods.push_back(std::move(method));
  return row;
}

std::vector<TClassRow> JoinRows(std::initializer_list<std::vector<TClassRow>> parts) {
  std::vector<TClassRow> rows;
  for (const std::vector<TClassRow>& part : parts)
    rows.insert(rows.end(), part.begin(), part.end());
  return rows;
}

}  // namespace NZELVYR20
