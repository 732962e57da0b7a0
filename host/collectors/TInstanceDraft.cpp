#include "TInstanceDraft.h"

#include "DeclarationText.h"
#include "ICIMClass.h"
#include "ICIMPropertyDecl.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

std::string NamePropertyType(const ICIMClass& cimClass, const std::string& name) {
  try {
    return TypeText(cimClass.GetPropertyDecl(name, {})->GetType({}));
  } catch (const TVYRException&) {
    return "not declared";
  }
}

TInstanceDraft::TSlip DescribeSlip(const ICIMClass& cimClass, const std::string& name,
                                   const TCIMValue& value) {
  return {DeclarationText(cimClass.GetName({}), name, NamePropertyType(cimClass, name)),
          "the value is " + TypeText(value.GetType()) + ' ' + value.ToString(10)};
}

}  // namespace

TInstanceDraft::TInstanceDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                               const std::string& className)
    : className_(className),
      namespace_(nameSpace),
      instance_(nameSpace->GetClass(className, {})->AllocateInstance({})) {}

TInstanceDraft& TInstanceDraft::Set(const std::string& name, const TCIMValue& value) {
  try {
    instance_->SetPropertyValue(name, value, {});
  } catch (const TVYRException&) {
    slips_.push_back(DescribeSlip(*instance_->GetClass({}), name, value));
  }
  return *this;
}

TInstanceDraft& TInstanceDraft::SetText(const std::string& name, const std::string& text) {
  return text.empty() ? *this : Set(name, TCIMValue(text));
}

TInstanceDraft& TInstanceDraft::SetTexts(const std::string& name,
                                         const std::vector<std::string>& texts) {
  return Set(name, TCIMValue::Array(TCIMValue::TCIMType::kString,
                                    std::vector<TCIMValue>(texts.begin(), texts.end())));
}

TInstanceDraft& TInstanceDraft::SetCode(const std::string& name, unsigned code) {
  return Set(name, TCIMValue(static_cast<std::uint16_t>(code)));
}

TInstanceDraft& TInstanceDraft::SetCodes(const std::string& name,
                                         const std::vector<unsigned>& codes) {
  std::vector<TCIMValue> elements;
  elements.reserve(codes.size());
  for (const unsigned code : codes) elements.emplace_back(static_cast<std::uint16_t>(code));
  return Set(name, TCIMValue::Array(TCIMValue::TCIMType::kUInt16, std::move(elements)));
}

void TInstanceDraft::Add() const { instance_->AddToNamespace({}); }

std::optional<TCIMReference> TInstanceDraft::FindPath() const {
  // A refused instance is only logged, so that the one way to know is to ask for it.
  TCIMReference path = instance_->GetReference({});
  if (namespace_->GetInstance(path, {}) != instance_) return std::nullopt;
  return path;
}

}  // namespace NZELVYR20
