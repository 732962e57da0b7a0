#include "RunCall.h"

#include <string>

#include "FindOrFail.h"
#include "Operations.h"
#include "TArguments.h"
#include "TCimFailure.h"
#include "TElementWriter.h"
#include "TPathReader.h"
#include "TPathWriter.h"
#include "WriteAnswer.h"

namespace NZELVYR20 {
namespace {

TPathPlace FindPlace(const TMessage& message, const TNamespaces& namespaces) {
  const std::string name = message.GetNamespace();
  const boost::shared_ptr<ICIMNamespace> found = namespaces.Find(name);
  if (!found) throw TCimFailure(ECimStatus::kInvalidNamespace, "no namespace " + name);
  return {message.GetHost(), name, found};
}

TPathReader MakePathReader(const TPathPlace& place, const TNamespaces& namespaces) {
  return {place.nameSpace, [&namespaces, nameSpace = place.nameSpace](const std::string& name) {
            return namespaces.Find(name) == nameSpace;
          }};
}

void RunOperation(const TMessage& message, const TNamespaces& namespaces,
                  TEnumerations& enumerations, TXmlWriter& xml) {
  const TOperation* const operation = FindOperation(message.GetName());
  if (operation == nullptr) {
    throw TCimFailure(ECimStatus::kNotSupported,
                      std::string(message.GetName()) + " is not offered: this server only reads");
  }
  const TPathPlace place = FindPlace(message, namespaces);
  const TPathReader paths = MakePathReader(place, namespaces);
  const TArguments arguments(operation->parameters, message.GetCall());
  const TResult result = operation->run({arguments, place, paths, enumerations});
  TElementWriter elements(xml, place);
  WriteAnswer(xml, message, [&] {
    if (result.returned) xml.WriteElement("IRETURNVALUE", [&] { result.returned(xml, elements); });
    if (result.parameters) result.parameters(xml, elements);
  });
}

/// No method can be called; the status says what of the call is there all the same.
[[noreturn]] void FailMethod(const TMessage& message, const TNamespaces& namespaces) {
  const TPathPlace place = FindPlace(message, namespaces);
  const std::string name = message.GetTargetClass();
  const auto cimClass = FindOrFail(
      [&] {
        const boost::shared_ptr<ICIMClass> found = place.nameSpace->GetClass(name, {});
        return found->IsRootClass({}) ? nullptr : found;
      },
      ECimStatus::kNotFound, "class " + name);
  const std::string method = message.GetName();
  const pugi::xml_node instance = message.GetTarget().child("INSTANCENAME");
  if (!instance.child("KEYBINDING").empty()) {
    const TCIMReference path = MakePathReader(place, namespaces).ReadInstance(instance);
    FindOrFail([&] { return place.nameSpace->GetInstance(path, {}); }, ECimStatus::kNotFound,
               path.ToString());
  }
  if (cimClass->GetMethodDecl(method, {})) {
    throw TCimFailure(ECimStatus::kMethodNotAvailable, "method " + method + " cannot be called");
  }
  throw TCimFailure(ECimStatus::kMethodNotFound, "no method " + method);
}

}  // namespace

void RunCall(const TMessage& message, const TNamespaces& namespaces, TEnumerations& enumerations,
             TXmlWriter& xml) {
  if (message.IsExtrinsic()) FailMethod(message, namespaces);
  RunOperation(message, namespaces, enumerations, xml);
}

}  // namespace NZELVYR20
