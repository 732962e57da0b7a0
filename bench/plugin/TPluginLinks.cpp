#include "TPluginLinks.h"

#include <string>

#include "ICIMClass.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

const char* const kPart = "Bench_Part";

using TClass = boost::shared_ptr<ICIMClass>;
using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;

void DeclareKey(const boost::shared_ptr<ICIMNamespace>& space, ICIMClass& cimClass,
                const std::string& name, const TCIMValue& defaultValue) {
  const auto declaration = cimClass.AllocatePropertyDecl(name, defaultValue, {});
  Qualify(space, *declaration, "Key");
  declaration->AddToClass({});
}

TClass DeclareEnd(const boost::shared_ptr<ICIMNamespace>& space, const std::string& name) {
  auto end = space->AllocateClass(name, {}, {});
  DeclareKey(space, *end, "Name", TCIMValue::Null(TCIMValue::TCIMType::kString));
  end->AddToNamespace({});
  return end;
}

TClass DeclareLink(const boost::shared_ptr<ICIMNamespace>& space, const TClass& system,
                   const TClass& part) {
  auto link = space->AllocateClass("Bench_SystemPart", {}, {});
  Qualify(space, *link, "Association");
  DeclareKey(space, *link, "System", TCIMValue::NullReference(system));
  DeclareKey(space, *link, "Part", TCIMValue::NullReference(part));
  link->AddToNamespace({});
  return link;
}

TInstances AddEnds(const TClass& end, const std::vector<std::string>& names) {
  TInstances ends;
  for (const std::string& name : names) {
    ends.push_back(end->AllocateInstance({}));
    ends.back()->SetPropertyValue("Name", name, {});
    ends.back()->AddToNamespace({});
  }
  return ends;
}

void AddLinks(const TClass& link, const TLinkRows& rows, const TInstances& systems,
              const TInstances& parts) {
  for (const auto& row : rows.links) {
    const auto instance = link->AllocateInstance({});
    instance->SetPropertyValue("System", systems[row.system]->GetReference({}), {});
    instance->SetPropertyValue("Part", parts[row.part]->GetReference({}), {});
    instance->AddToNamespace({});
  }
}

}  // namespace

TPluginLinks::TPluginLinks(const TLinkRows& rows) : space_(AllocatePluginNamespace()) {
  const auto system = DeclareEnd(space_, "Bench_System");
  const auto part = DeclareEnd(space_, kPart);
  systems_ = AddEnds(system, rows.names);
  AddLinks(DeclareLink(space_, system, part), rows, systems_, AddEnds(part, rows.names));
}

std::size_t TPluginLinks::CountReferences(std::size_t system) const {
  std::size_t count = 0;
  const auto visit = [&count](const boost::shared_ptr<ICIMInstance>&) { return ++count != 0; };
  systems_[system]->EnumerateAssociationInstances(visit, "", "", {});
  return count;
}

std::size_t TPluginLinks::RefreshReferences(std::size_t system) const {
  std::size_t count = 0;
  const auto refresh = [&count](const boost::shared_ptr<ICIMInstance>& association) {
    const TCIMValue part = association->GetProperty("Part", {})->GetValue({});
    association->SetPropertyValue("Part", part, {});
    association->AddToNamespace({});
    return ++count != 0;
  };
  systems_[system]->EnumerateAssociationInstances(refresh, "", "", {});
  return count;
}

std::size_t TPluginLinks::CountAssociators(std::size_t system) const {
  std::size_t count = 0;
  const auto visit = [&count](const boost::shared_ptr<ICIMInstance>&) { return ++count != 0; };
  systems_[system]->EnumerateAssociatedInstances(visit, "", kPart, "", "", {});
  return count;
}

}  // namespace NZELVYR20
