#include "TRandomModel.h"

#include <set>
#include <utility>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "TCIMDateTime.h"

namespace NZELVYR20 {
namespace {

using TDecl = ICIMQualifierDecl;

std::vector<boost::shared_ptr<ICIMPropertyDecl>> ListProperties(const ICIMClass& cimClass) {
  return ListElements<ICIMPropertyDecl>([&cimClass](const TCIMPropertyDeclCallback& callback) {
    cimClass.EnumeratePropertyDecls(callback, {});
  });
}

std::vector<boost::shared_ptr<ICIMQualifier>> ListQualifiers(const ICIMNamedElement& element) {
  return ListElements<ICIMQualifier>([&element](const TCIMQualifierCallback& callback) {
    element.EnumerateQualifiers(callback, {});
  });
}

bool Has(const ICIMNamedElement& element, const std::string& name) {
  bool isThere = false;
  for (const auto& qualifier : ListQualifiers(element)) {
    isThere = isThere || qualifier->GetName({}) == name;
  }
  return isThere;
}

}  // namespace

TRandomModel::TRandomModel(boost::shared_ptr<ICIMNamespace> nameSpace, unsigned seed)
    : namespace_(std::move(nameSpace)), random_(seed) {
  DeclareQualifiers();
  for (int count = 0; count < 14; ++count) DeclareClass();
  for (int count = 0; count < 40; ++count) AddInstance(Pick(classes_));
}

std::string TRandomModel::AnyText() {
  static const std::vector<std::string> kParts = {"plain ",
                                                  "\"quoted\"",
                                                  "\\",
                                                  "\\\"",
                                                  "\n",
                                                  "\t\r\b\f",
                                                  "\001F",
                                                  "\03700",
                                                  "\x7f",
                                                  "\xC3\xA9",
                                                  "'",
                                                  "  ",
                                                  "\xF0\x9F\x98\x80 ",
                                                  "/* no comment */",
                                                  "// none",
                                                  "\\x41",
                                                  "\\n",
                                                  "a longer run of words to wrap ",
                                                  "\xEF\xBB\xBF",
                                                  "{1, 2}",
                                                  "NULL",
                                                  "$alias"};
  std::string text;
  for (unsigned count = Chance(20) ? 30 : Below(5); count > 0; --count) text += Pick(kParts);
  return text;
}

TCIMValue::TCIMType TRandomModel::AnyType() {
  const auto element = static_cast<TType::ECIMType>(TType::kBoolean + Below(TType::kDateTime));
  return Chance(30) ? TType::ArrayOf(element) : TType(element);
}

TCIMValue TRandomModel::AnyScalar(TType type) {
  if (Chance(10)) return TCIMValue::Null(type);
  const std::uint64_t bits = Chance(20) ? 0 - std::uint64_t{Below(2)} : random_() * 0x100000001ULL;
  const std::uint64_t extreme = Chance(20) ? std::uint64_t{1} << 63U : bits;
  switch (type) {
    case TType::kBoolean:
      return Chance(50);
    case TType::kUInt8:
      return static_cast<std::uint8_t>(bits);
    case TType::kSInt8:
      return static_cast<std::int8_t>(Chance(20) ? 0x80 : bits);
    case TType::kUInt16:
      return static_cast<std::uint16_t>(bits);
    case TType::kSInt16:
      return static_cast<std::int16_t>(bits);
    case TType::kUInt32:
      return static_cast<std::uint32_t>(bits);
    case TType::kSInt32:
      return static_cast<std::int32_t>(extreme >> 32U);
    case TType::kUInt64:
      return bits;
    case TType::kSInt64:
      return static_cast<std::int64_t>(extreme);
    case TType::kReal32:
      return Chance(30) ? 1e30F : static_cast<float>(bits) / 3.0e7F;
    case TType::kReal64:
      return Chance(30) ? -5e-324 : static_cast<double>(bits % 1000) / (Chance(50) ? 1 : 7e200);
    case TType::kChar16:
      return static_cast<char16_t>(Chance(30) ? 0xD800 : Chance(50) ? bits % 128 : bits);
    case TType::kDateTime: {
      TCIMDateTime dateTime;
      dateTime.Set(Below(99999999), static_cast<unsigned short>(Below(24)), 59, 1, Below(1000000));
      if (Chance(50)) dateTime.SetTimeStamp(1999, 12, 31, 23, Below(60), 59, Below(1000000), -300);
      return dateTime;
    }
    default:
      return AnyText();
  }
}

TCIMValue TRandomModel::AnyValue(TType type) {
  if (!type.IsArray()) return AnyScalar(type);
  if (Chance(15)) return TCIMValue::Null(type);
  std::vector<TCIMValue> elements;
  for (unsigned count = Below(Chance(20) ? 40 : 4); count > 0; --count) {
    elements.push_back(AnyScalar(type.GetElementType()));
  }
  return TCIMValue::Array(type.GetElementType(), elements);
}

void TRandomModel::DeclareQualifiers() {
  const auto declare = [this](const std::string& name, const TCIMValue& value, unsigned flavor) {
    const auto scope = static_cast<TDecl::EScope>(Chance(20) ? TDecl::kAny : Below(256));
    namespace_->AllocateQualifierDecl(name, value, scope, static_cast<TDecl::EFlavor>(flavor), {})
        ->AddToNamespace({});
  };
  declare("Association", false, TDecl::kToSubclass);
  declare("Abstract", false, TDecl::kNoFlavor);
  declare("Key", false, TDecl::kToSubclass);
  declare("Override", TCIMValue::Null(TType::kString), TDecl::kNoFlavor);
  for (int count = 0; count < 12; ++count) {
    freeQualifiers_.push_back((Chance(50) ? "qual_" : "Other") + std::to_string(count));
    declare(freeQualifiers_.back(), AnyValue(AnyType()), Below(8));
  }
}

void TRandomModel::Attach(ICIMNamedElement& element, const std::string& name,
                          const TCIMValue& value) {
  element.AllocateQualifier(namespace_->GetQualifierDecl(name, {}), value, {})
      ->AddToClassOrProperty({});
}

void TRandomModel::AttachAny(ICIMNamedElement& element) {
  for (unsigned count = Below(4); count > 0; --count) {
    const auto declaration = namespace_->GetQualifierDecl(Pick(freeQualifiers_), {});
    if (Has(element, declaration->GetName({}))) continue;
    // Every change of flavor but one has a word of its own.
    const unsigned kept = declaration->GetFlavor({}) & TDecl::kTranslatable;
    const auto flavor =
        Chance(70) ? declaration->GetFlavor({}) : static_cast<TDecl::EFlavor>(Below(8) | kept);
    element.AllocateQualifier(declaration, AnyValue(declaration->GetType({})), flavor, {})
        ->AddToClassOrProperty({});
  }
}

void TRandomModel::DeclareClass() {
  const auto superClass =
      classes_.empty() || Chance(30) ? boost::shared_ptr<ICIMClass>() : Pick(classes_);
  const auto cimClass =
      namespace_->AllocateClass("Class_" + std::to_string(classes_.size()), superClass, {});
  if (!classes_.empty() && Chance(30) && !cimClass->IsAssociation({})) {
    Attach(*cimClass, "Association", true);
  }
  if (Chance(20)) Attach(*cimClass, "Abstract", true);
  AttachAny(*cimClass);
  OverrideSome(*cimClass);
  if (!superClass) DeclareProperty(*cimClass, TCIMValue::Null(TType::kString), true);
  for (unsigned count = Below(5); count > 0; --count) {
    DeclareProperty(*cimClass, AnyValue(AnyType()), false);
  }
  if (cimClass->IsAssociation({})) {
    for (unsigned count = 0; count < 2; ++count) {
      DeclareProperty(*cimClass, TCIMValue::NullReference(Chance(10) ? cimClass : Pick(classes_)),
                      Chance(80));
    }
  }
  for (unsigned count = Below(3); count > 0; --count) DeclareMethod(*cimClass);
  cimClass->AddToNamespace({});
  classes_.push_back(cimClass);
}

void TRandomModel::DeclareProperty(ICIMClass& cimClass, const TCIMValue& defaultValue, bool isKey) {
  const std::string name = (Chance(50) ? "Value" : "other_") + std::to_string(nextNumber_++);
  const auto property = cimClass.AllocatePropertyDecl(name, defaultValue, {});
  if (isKey) Attach(*property, "Key", true);
  AttachAny(*property);
  property->AddToClass({});
}

void TRandomModel::OverrideSome(ICIMClass& cimClass) {
  for (const auto& inherited : ListProperties(cimClass)) {
    if (Chance(70)) continue;
    const TCIMValue& value = inherited->GetDefaultValue({});
    const auto property = cimClass.AllocatePropertyDecl(
        inherited->GetName({}), value.IsReference() ? value : AnyValue(value.GetType()), {});
    Attach(*property, "Override", inherited->GetName({}));
    for (const auto& qualifier : ListQualifiers(*inherited)) {
      if ((qualifier->GetFlavor({}) & TDecl::kToSubclass) == 0) continue;
      property
          ->AllocateQualifier(qualifier->GetDeclaration({}), qualifier->GetValue({}),
                              qualifier->GetFlavor({}), {})
          ->AddToClassOrProperty({});
    }
    AttachAny(*property);
    property->AddToClass({});
  }
}

void TRandomModel::DeclareMethod(ICIMClass& cimClass) {
  const TType returnType = AnyType().GetElementType();
  const auto method =
      cimClass.AllocateMethodDecl("Method" + std::to_string(nextNumber_++), returnType, {});
  AttachAny(*method);
  for (unsigned count = Below(4); count > 0; --count) {
    const TType type = Chance(20) ? TType(TType::kReference) : AnyType();
    const auto parameter = method->AllocateParameterDecl("in" + std::to_string(count), type, {});
    AttachAny(*parameter);
    parameter->AddToMethod({});
  }
  method->AddToClass({});
}

void TRandomModel::AddInstance(const boost::shared_ptr<ICIMClass>& cimClass) {
  const auto instance = cimClass->AllocateInstance({});
  for (const auto& property : ListProperties(*cimClass)) {
    const TCIMValue& value = property->GetDefaultValue({});
    const std::string& name = property->GetName({});
    if (value.IsReference()) {
      std::vector<TCIMValue> targets;
      for (const auto& target : instances_) {
        if (!target->GetClass({})->IsSubclassOf(value.GetReferencedClass(), {})) continue;
        targets.emplace_back(target->GetReference({}));
      }
      if (targets.empty()) return;
      instance->SetPropertyValue(name, Pick(targets), {});
    } else if (Has(*property, "Key")) {
      instance->SetPropertyValue(name, AnyText() + std::to_string(nextNumber_++), {});
    } else if (Chance(50)) {
      instance->SetPropertyValue(name, AnyValue(value.GetType()), {});
    }
  }
  instance->AddToNamespace({});
  instances_.push_back(instance);
}

}  // namespace NZELVYR20
