#include "TCollection.h"

#include <utility>

namespace NZELVYR20 {
namespace {

const char* const kSystemClass = "CIM_ComputerSystem";

}  // namespace

TCollection::TCollection(const std::string& root, const boost::shared_ptr<ICIMNamespace>& nameSpace)
    : files_(root), namespace_(nameSpace) {}

void TCollection::BeginArea(const std::string& area) { area_ = area; }

void TCollection::Note(const std::string& what, const std::string& why) {
  notes_.push_back({area_, what, why});
}

std::string TCollection::Read(const std::string& path) {
  std::string why;
  const std::optional<std::string> text = files_.Read(path, why);
  if (!text) Note(path, why);
  return text.value_or(std::string());
}

TMachineFolder TCollection::Enter(const std::string& path) {
  TMachineFolder folder(files_, path);
  if (!folder.GetReason().empty()) Note(path, folder.GetReason());
  return folder;
}

TInstanceDraft TCollection::Draft(const std::string& className) const {
  return TInstanceDraft(namespace_, className);
}

TInstanceDraft TCollection::DraftDevice(const std::string& className,
                                        const std::string& deviceId) const {
  return Draft(className)
      .Set("CreationClassName", className)
      .Set("SystemCreationClassName", kSystemClass)
      .Set("SystemName", systemName_)
      .Set("DeviceID", deviceId);
}

TInstanceDraft TCollection::DraftElement(const std::string& className,
                                         const std::string& name) const {
  return Draft(className)
      .Set("CreationClassName", className)
      .Set("CSCreationClassName", kSystemClass)
      .Set("CSName", systemName_)
      .Set("Name", name);
}

TInstanceDraft TCollection::DraftAccessPoint(const std::string& className,
                                             const std::string& name) const {
  return Draft(className)
      .Set("CreationClassName", className)
      .Set("SystemCreationClassName", kSystemClass)
      .Set("SystemName", systemName_)
      .Set("Name", name);
}

TInstanceDraft TCollection::DraftOf(const std::string& operatingSystem,
                                    const std::string& className) const {
  return Draft(className)
      .Set("CreationClassName", className)
      .Set("CSCreationClassName", kSystemClass)
      .Set("CSName", systemName_)
      .Set("OSCreationClassName", "CIM_OperatingSystem")
      .Set("OSName", operatingSystem);
}

void TCollection::Link(const TInstanceDraft& draft) {
  draft.AddAnyway();
  for (const TInstanceDraft::TSlip& slip : draft.GetSlips()) Note(slip.what, slip.why);
}

std::optional<TCIMReference> TCollection::Add(const TInstanceDraft& draft) {
  Link(draft);
  std::optional<TCIMReference> path = draft.FindPath();
  if (!path) Note(draft.GetClassName(), "The namespace did not take the instance");
  return path;
}

std::optional<TCIMReference> TCollection::AddPart(const TInstanceDraft& draft,
                                                  const std::string& association) {
  std::optional<TCIMReference> path = Add(draft);
  if (path && system_) Link(DraftComponent(association, *system_, *path));
  return path;
}

void TCollection::AddSystem(const TInstanceDraft& draft, const std::string& name) {
  systemName_ = name;
  system_ = Add(draft);
  // What all links to it copy has its text from here on.
  if (system_) system_->GetPath();
}

TInstanceDraft TCollection::DraftDependency(const std::string& className,
                                            const TCIMReference& antecedent,
                                            const TCIMReference& dependent) const {
  return Draft(className).Set("Antecedent", antecedent).Set("Dependent", dependent);
}

TInstanceDraft TCollection::DraftComponent(const std::string& className, const TCIMReference& whole,
                                           const TCIMReference& part) const {
  return Draft(className).Set("GroupComponent", whole).Set("PartComponent", part);
}

}  // namespace NZELVYR20
