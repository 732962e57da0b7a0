#include "TEveryWalk.h"

#include "TCIMReference.h"

namespace NZELVYR20 {

using TType = TCIMValue::TCIMType;

TEveryWalk::TEveryWalk(const TSpace& nameSpace)
    : space(nameSpace), root(space->GetClass("", {})), port(MakeClass(space, "Port", "")) {
  property = port->GetPropertyDecl("Id", {});
  method = port->AllocateMethodDecl("Reset", TType::kUInt32, {});
  parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
  const auto toPort = TCIMValue::NullReference(port);
  const auto addLink = [&](const std::string& name) {
    auto link = MakeClass(space, name, toPort);
    link->AllocatePropertyDecl("To", toPort, {})->AddToClass({});
    link->AddToNamespace({});
    return link;
  };
  for (const char* name : {"A", "B", "C"}) {
    Declare(space, port, name, "x", {"Key"});
    port->AllocateMethodDecl(name, TType::kUInt32, {})->AddToClass({});
    method->AllocateParameterDecl(name, TType::kBoolean, {})->AddToMethod({});
    for (ICIMNamedElement* element : std::vector<ICIMNamedElement*>{
             port.get(), property.get(), method.get(), parameter.get()}) {
      Qualify(space, *element, name);
    }
  }
  port->AddToNamespace({});
  hub = AddInstance(port, "hub");
  const auto link = addLink("Link");
  for (const std::string name : {"A", "B", "C"}) {
    const auto sub = MakeClass(space, name, "", port);
    sub->AddToNamespace({});
    AddInstance(sub, name);
    addLink("Has" + name);
    const auto edge = link->AllocateInstance({});
    edge->SetPropertyValue("Id", AddInstance(port, name)->GetReference({}), {});
    edge->SetPropertyValue("To", hub->GetReference({}), {});
    edge->AddToNamespace({});
  }
}

std::vector<TEveryWalk::TWalk> TEveryWalk::GetWalks() const {
  using V = const TVisit&;
  return {
      {"instances", [=](V visit) { port->EnumerateInstances(visit, false, {}); }},
      {"deep instances", [=](V visit) { root->EnumerateInstances(visit, true, {}); }},
      {"references", [=](V visit) { hub->EnumerateAssociationInstances(visit, "", "", {}); }},
      {"references by role",
       [=](V visit) { hub->EnumerateAssociationInstances(visit, "Link", "To", {}); }},
      {"associators",
       [=](V visit) { hub->EnumerateAssociatedInstances(visit, "", "Port", "", "", {}); }},
      {"associators by result role",
       [=](V visit) { hub->EnumerateAssociatedInstances(visit, "", "Port", "", "Id", {}); }},
      {"properties of an instance", [=](V visit) { hub->EnumerateProperties(visit, {}); }},
      {"root classes", [=](V visit) { space->EnumerateRootClasses(visit, {}); }},
      {"subclasses", [=](V visit) { root->EnumerateSubClasses(visit, true, {}); }},
      {"association classes",
       [=](V visit) { port->EnumerateAssociationClasses(visit, "", "", {}); }},
      {"associated classes",
       [=](V visit) { port->EnumerateAssociatedClasses(visit, "", "", "", "", {}); }},
      {"properties", [=](V visit) { port->EnumeratePropertyDecls(visit, {}); }},
      {"keys", [=](V visit) { port->EnumerateKeyNames(visit, {}); }},
      {"methods", [=](V visit) { port->EnumerateMethodDecls(visit, {}); }},
      {"parameters",
       [=](V visit) {
         TCIMParameterDeclCallback callback = visit;
         method->EnumerateParameterDecls(callback, {});
       }},
      {"declared qualifiers", [=](V visit) { space->EnumerateQualifierDecls(visit, {}); }},
      {"qualifiers", [=](V visit) { port->EnumerateQualifiers(visit, {}); }},
      {"qualifiers of a method", [=](V visit) { method->EnumerateQualifiers(visit, {}); }},
      {"qualifiers of a property", [=](V visit) { property->EnumerateQualifiers(visit, {}); }},
      {"qualifiers of a parameter", [=](V visit) { parameter->EnumerateQualifiers(visit, {}); }},
  };
}

std::vector<boost::weak_ptr<void>> TEveryWalk::Watch() const {
  return {space, root, port, hub, property, method, parameter};
}

void TEveryWalk::Drop() {
  hub.reset(), parameter.reset(), method.reset(), property.reset();
  port.reset(), root.reset(), space.reset();
}

}  // namespace NZELVYR20
