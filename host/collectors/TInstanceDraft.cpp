#include "TInstanceDraft.h"

#include "ICIMClass.h"

namespace NZELVYR20 {

TInstanceDraft::TInstanceDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                               const std::string& className)
    : namespace_(nameSpace), instance_(nameSpace->GetClass(className, {})->AllocateInstance({})) {}

TInstanceDraft& TInstanceDraft::Set(const std::string& name, const TCIMValue& value) {
  instance_->SetPropertyValue(name, value, {});
  return *this;
}

TInstanceDraft& TInstanceDraft::SetText(const std::string& name, const std::string& text) {
  return text.empty() ? *this : Set(name, TCIMValue(text));
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

TCIMReference TInstanceDraft::GetPath() const { return instance_->GetReference({}); }

bool TInstanceDraft::AddToNamespace() {
  instance_->AddToNamespace({});
  // A refused instance is only logged, so that the one way to know is to ask for it.
  return namespace_->GetInstance(GetPath(), {}) == instance_;
}

}  // namespace NZELVYR20
