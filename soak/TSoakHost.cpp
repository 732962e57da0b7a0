#include "TSoakHost.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <stdexcept>
#include <utility>

#include "CompareNamespaces.h"
#include "ICIMProperty.h"
#include "ICoreLogger.h"
#include "ListElements.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"
#include "TMachineCollector.h"
#include "TMofLoader.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// Some of what is polled is wrong on purpose, and the repository says so each time.
class TSilentLogger : public ICoreLogger {
 public:
  void Log(int, const std::string&) override {}
};

boost::shared_ptr<ICIMNamespace> LoadSchema() {
  TRootObject::SetCoreLogger(boost::make_shared<TSilentLogger>());
  auto space = AllocatePluginNamespace(true);
  TMofLoader loader(space, {}, [](const std::string& message) { throw std::logic_error(message); });
  loader.Read(VYR_SCHEMA_DIR "/vyr.mof");
  loader.Enter();
  return space;
}

void Require(bool condition, const char* what) {
  if (!condition) throw std::logic_error(std::string("not so any more: ") + what);
}

template <class TOperation>
void RequireStatus(int status, TOperation operation) {
  try {
    operation();
  } catch (const TVYRException& failure) {
    return Require(failure.GetStatusCode() == status, "a failure has its status");
  }
  Require(false, "an operation fails");
}

/// Everything in it refers to something else in it, replaced classes and lost instances included.
void UseShortNamespace() {
  std::vector<boost::weak_ptr<const void>> made;
  {
    const auto space = AllocatePluginNamespace(true);
    const auto node = AddClass(space, "Node", "");
    // Allocated while there is none of that name yet, each is a class of its own.
    std::vector<boost::shared_ptr<ICIMClass>> versions;
    versions.reserve(3);
    for (int version = 0; version < 3; ++version) {
      versions.push_back(MakeClass(space, "Link", TCIMValue::NullReference(node)));
    }
    for (const auto& link : versions) {
      link->AddToNamespace({});
      const auto instance = AddInstance(node, link->GetName({}));
      made.insert(made.end(), {link, instance, AddInstance(link, instance->GetReference({}))});
    }
    versions.front()->RemoveFromNamespace({});
  }
  for (const auto& element : made) Require(element.expired(), "all goes with its namespace");
}

}  // namespace

TSoakHost::TSoakHost(std::string root)
    : root_(std::move(root)),
      space_(LoadSchema()),
      port_(AddClass(space_, "SOAK_Port", "")),
      link_(AddClass(space_, "SOAK_Link", TCIMValue::NullReference(port_))),
      watched_(LoadSchema()),
      present_(LoadSchema()),
      watch_(watched_, present_, [this] { CollectWithNews(); }) {}

void TSoakHost::Poll() {
  Refresh();
  AllocateClassesAgain();
  DeclareAgain();
  ReadUndeclared();
  ReplaceInstances();
  Fail();
  // Six machines are read for that: once in a while is enough.
  if (polls_++ % kPollsForEachWatch == 0) Watch();
  UseShortNamespace();
}

std::vector<boost::shared_ptr<ICIMInstance>> TSoakHost::ListInstances(
    const std::string& className) {
  std::vector<boost::shared_ptr<ICIMInstance>> found;
  const auto note = [&found](const boost::shared_ptr<ICIMInstance>& instance) {
    found.push_back(instance);
    return true;
  };
  space_->GetClass(className, {})->EnumerateInstances(note, true, {});
  return found;
}

void TSoakHost::Refresh() {
  space_->ClearInstances();
  TMachineCollector(root_).Collect(space_);
  const auto systems = ListInstances("CIM_ComputerSystem");
  Require(systems.size() == 1, "there is one computer");
  std::size_t devices = 0;
  const auto note = [&devices](const boost::shared_ptr<ICIMInstance>& device) {
    device->EnumerateProperties(
        [](const boost::shared_ptr<ICIMProperty>& shown) { return !shown->ToString().empty(); },
        {});
    ++devices;
    return true;
  };
  systems.front()->EnumerateAssociatedInstances(note, "", "CIM_LogicalDevice", "", "", {});
  Require(devices > 0, "the computer has devices");
}

/// Also the way in which hosts meet a class that another part of theirs has defined already.
void TSoakHost::AllocateClassesAgain() {
  std::vector<boost::shared_ptr<ICIMClass>> classes;
  const auto note = [&classes](const boost::shared_ptr<ICIMClass>& found) {
    classes.push_back(found);
    return true;
  };
  space_->GetClass("", {})->EnumerateSubClasses(note, true, {});
  for (const auto& present : classes) {
    const auto again = space_->AllocateClass(present->GetName({}), {}, {});
    Require(again == present, "an existing class is handed out");
    again->AddToNamespace({});
  }
}

/// The names that are declared anew wherever they stand, and one that stays as it was.
void TSoakHost::DeclareAgain() {
  for (const char* name : {"PortType", "speedDuplex", "Speed"}) {
    port_->AllocatePropertyDecl(name, std::string("none"), {})->AddToClass({});
  }
  AddClass(space_, "SOAK_Port", "");
}

void TSoakHost::ReadUndeclared() {
  for (const auto& instance : ListInstances("CIM_ManagedElement")) {
    for (const char* name : {"HealthState", "PrimaryStatus", "speedDuplex", "Description"}) {
      instance->GetProperty(name, {})->ToString();
    }
    instance->SetPropertyValue("speedDuplex", std::string("full"), {});
  }
}

void TSoakHost::ReplaceInstances() {
  for (const char* id : {"a", "b", "a"}) {
    const auto port = AddInstance(port_, id);
    const auto link = AddInstance(link_, port->GetReference({}));
    const auto path = TCIMReference::Parse(link->GetReference({}).ToString(), space_);
    Require(space_->GetInstance(path, {}) == link, "an instance is found by its path");
  }
  const auto links = ListInstances("SOAK_Link");
  Require(links.size() == 2, "an instance replaces that of its path");
  links.front()->Delete({});
  Require(ListInstances("SOAK_Link").size() == 1, "a deleted instance is gone");
}

void TSoakHost::Fail() {
  RequireStatus(15, [&] { space_->GetClass("SOAK_Nothing", {}); });
  RequireStatus(25, [&] { space_->GetClass("no name", {}); });
  RequireStatus(14, [&] { AddInstance(port_, 7); });
  RequireStatus(17, [&] { space_->AllocateClass("SOAK_Lost", {}, {})->RemoveFromNamespace({}); });
  AddInstance(port_, TCIMValue::Null(TCIMValue::TCIMType::kString));
}

/// A machine of which everything comes, changes and goes in turn.
void TSoakHost::CollectWithNews() {
  if (round_ == 2) return;
  TMachineCollector(root_).Collect(present_);
  for (const auto& device :
       NZELVYR20::ListInstances(*present_->GetClass("CIM_LogicalDevice", {}), true)) {
    device->SetPropertyValue("ElementName", std::to_string(round_), {});
  }
}

void TSoakHost::Watch() {
  for (round_ = 0; round_ < 3; ++round_) {
    bool isTold = false;
    watch_.Round({{}, true}, "", [&isTold](const std::string&) { isTold = true; });
    Require(isTold, "a watch tells what changes");
    const TComparison left = CompareNamespaces(*watched_, *present_, EMatch::kPath);
    Require(left.changes.empty(), "what is watched is brought up to date");
  }
}

}  // namespace NZELVYR20
