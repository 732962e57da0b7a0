// A host with services of its own: a logger, and a namespace in which paths lead to instances that
// the repository does not keep, made when one is first asked for.
#include <ICIMClass.h>
#include <ICoreLogger.h>
#include <ListAssociators.h>
#include <OpenNamespace.h>
#include <TClassDraft.h>
#include <TForwardingNamespace.h>
#include <TInstanceDraft.h>
#include <TRootObject.h>

#include <boost/make_shared.hpp>
#include <exception>
#include <iostream>
#include <map>
#include <string>

namespace vyr = NZELVYR20;

namespace {

using TInstancePtr = boost::shared_ptr<vyr::ICIMInstance>;

class TLogger : public vyr::ICoreLogger {
 public:
  /// What this threw would come out of the operation that logs.
  void Log(int level, const std::string& message) override {
    std::cout << "logged at " << level << ": " << message << '\n';
  }
};

/// A namespace of the host's own: it knows the rooms, and the repository all the rest.
class TBuilding : public vyr::TForwardingNamespace {
 public:
  using TForwardingNamespace::TForwardingNamespace;

  TInstancePtr GetInstance(const vyr::TCIMReference& path, vyr::TCIMContext context) override {
    if (path.GetClassName() != "Demo_Room") return TForwardingNamespace::GetInstance(path, context);
    if (rooms_.empty()) MakeRooms();
    const auto room = rooms_.find(path.GetPath());
    return room == rooms_.end() ? nullptr : room->second;
  }

 private:
  void MakeRooms() {
    std::cout << "asked for a room\n";
    for (const char* name : {"attic", "cellar"}) {
      const auto room = GetClass("Demo_Room", {})->AllocateInstance({});
      room->SetPropertyValue("Name", name, {});
      rooms_[room->GetReference({}).GetPath()] = room;
    }
  }

  std::map<std::string, TInstancePtr> rooms_;
};

void Define(const boost::shared_ptr<vyr::ICIMNamespace>& nameSpace) {
  const auto text = vyr::TCIMValue::TCIMType::kString;
  vyr::DeclareStandardQualifiers(*nameSpace);
  for (const char* name : {"Demo_Lamp", "Demo_Room"}) {
    vyr::TClassDraft(nameSpace, name).AddProperty("Name", text, {{"Key", true}}).Add();
  }
  vyr::TClassDraft(nameSpace, "Demo_LampInRoom")
      .Qualify("Association", true)
      .AddReference("Lamp", "Demo_Lamp", {{"Key", true}})
      .AddReference("Room", "Demo_Room", {{"Key", true}})
      .Add();
}

}  // namespace

int main() try {
  vyr::TRootObject::SetCoreLogger(boost::make_shared<TLogger>());
  const auto building = boost::make_shared<TBuilding>(vyr::OpenNamespace());
  Define(building);
  const auto lamp = vyr::TInstanceDraft(building, "Demo_Lamp").Set("Name", "desk").Add();
  const auto attic = vyr::TCIMReference::Parse("Demo_Room.Name=\"attic\"", building);
  vyr::TInstanceDraft(building, "Demo_LampInRoom").Set("Lamp", lamp).Set("Room", attic).Add();
  for (const auto& other : vyr::ListAssociators(building->GetInstance(lamp, {}))) {
    std::cout << "in: " << other->GetReference({}).ToString() << '\n';
  }
  vyr::TInstanceDraft(building, "Demo_Lamp").Set("Name", 5).AddAnyway();
  return 0;
} catch (const std::exception& error) {
  std::cerr << "services: " << error.what() << '\n';
  return 1;
}
