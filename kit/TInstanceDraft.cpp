#include "TInstanceDraft.h"

#include <ICIMClass.h>
#include <ICIMPropertyDecl.h>

#include <cstdint>
#include <utility>

#include "ListElements.h"
#include "NamedRefusal.h"
#include "TClassDraft.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

std::string ExplainSlip(const ICIMClass& cimClass, const std::string& name) {
  try {
    const auto declaration = cimClass.GetPropertyDecl(name, {});
    return "the type does not match (" + TypeText(declaration->GetType({})) + ")";
  } catch (const TVYRException&) {
    return "not declared";
  }
}

bool LeadsSomewhere(const TCIMValue& reference) {
  try {
    return static_cast<TCIMReference>(reference).GetCIMElement(false) != nullptr;
  } catch (const TVYRException&) {
    return false;
  }
}

}  // namespace

TInstanceDraft::TInstanceDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                               const std::string& className)
    : className_(className),
      namespace_(Given(nameSpace, className, "namespace")),
      instance_(Named("class " + className,
                      [&] { return nameSpace->GetClass(className, {})->AllocateInstance({}); })) {}

TInstanceDraft& TInstanceDraft::Set(const std::string& name, const TCIMValue& value) {
  try {
    instance_->SetPropertyValue(name, value, {});
  } catch (const TVYRException&) {
    const auto cimClass = instance_->GetClass({});
    slips_.push_back({cimClass->GetName({}) + '.' + name + " = " + TypeText(value.GetType()) + ' ' +
                          value.ToString(10),
                      ExplainSlip(*cimClass, name)});
  }
  return *this;
}

TInstanceDraft& TInstanceDraft::SetText(const std::string& name, const std::string& text) {
  return text.empty() ? *this : Set(name, TCIMValue(text));
}

TInstanceDraft& TInstanceDraft::SetTexts(const std::string& name,
                                         const std::vector<std::string>& texts) {
  return Set(name, TextArray(texts));
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

TCIMReference TInstanceDraft::Add() const {
  if (!slips_.empty()) throw TKitError(slips_.front().what + ": " + slips_.front().why);
  AddAnyway();
  const std::optional<TCIMReference> path = FindPath();
  if (!path) throw TKitError(className_ + GetReason());
  return *path;
}

void TInstanceDraft::AddAnyway() const { instance_->AddToNamespace({}); }

std::optional<TCIMReference> TInstanceDraft::FindPath() const {
  // A refused instance is only logged, so that the one way to know is to ask for it.
  TCIMReference path = instance_->GetReference({});
  if (namespace_->GetInstance(path, {}) != instance_) return std::nullopt;
  return path;
}

/// Why the namespace did not take it, as far as it can be told afterwards.
std::string TInstanceDraft::GetReason() const {
  for (const std::string& key : ListKeyNames(*instance_->GetClass({}))) {
    if (instance_->GetProperty(key, {})->GetValue({}).IsNull()) {
      return '.' + key + ": a key has no value";
    }
  }
  for (const auto& property : ListProperties(*instance_)) {
    const TCIMValue value = property->GetValue({});
    if (value.IsReference() && !LeadsSomewhere(value)) {
      return '.' + property->GetDeclaration({})->GetName({}) + " = " + value.ToString(10) +
             ": leads nowhere";
    }
  }
  return ": the namespace did not take the instance";
}

}  // namespace NZELVYR20
