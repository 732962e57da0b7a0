#include "TPluginDisplay.h"

#include "ICIMInstance.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICIMQualifierDecl.h"
#include "PluginNamespace.h"

namespace NZELVYR20 {
namespace {

using TDecl = ICIMQualifierDecl;
using TType = TCIMValue::TCIMType;

TCIMValue MakeTexts(const std::vector<std::string>& texts) {
  return TCIMValue::Array(TType::kString, {texts.begin(), texts.end()});
}

std::vector<std::string> ListNumbers(std::size_t count) {
  std::vector<std::string> numbers;
  for (std::size_t number = 0; number < count; ++number) numbers.push_back(std::to_string(number));
  return numbers;
}

}  // namespace

TPluginDisplay::TPluginDisplay(const std::vector<std::string>& meanings)
    : space_(AllocatePluginNamespace()), class_(space_->AllocateClass("Bench_Shown", {}, {})) {
  Declare("Plain", {{"Key", true}});
  Declare("Mapped",
          {{"ValueMap", MakeTexts(ListNumbers(meanings.size()))}, {"Values", MakeTexts(meanings)}});
  Declare("Size", {{"Units", "Bytes"}});
  class_->AddToNamespace({});
  const auto instance = class_->AllocateInstance({});
  const auto set = [&instance](const char* name, unsigned value) {
    instance->SetPropertyValue(name, value, {});
    return instance->GetProperty(name, {});
  };
  plain_ = set("Plain", kPlain);
  mapped_ = set("Mapped", kMapped);
  bytes_ = set("Size", kBytes);
  instance->AddToNamespace({});
}

void TPluginDisplay::Declare(const std::string& name, const TNamedValues& qualifiers) {
  const auto declaration = class_->AllocatePropertyDecl(name, TCIMValue::Null(TType::kUInt32), {});
  for (const auto& [qualifier, value] : qualifiers) {
    const auto declared = space_->AllocateQualifierDecl(qualifier, TCIMValue::Null(value.GetType()),
                                                        TDecl::kAny, TDecl::kToSubclass, {});
    declared->AddToNamespace({});
    declaration->AllocateQualifier(declared, value, {})->AddToClassOrProperty({});
  }
  declaration->AddToClass({});
}

}  // namespace NZELVYR20
