// A host: opens a namespace, defines a class, adds an instance and prints it.
#include <ICIMClass.h>
#include <ICIMInstance.h>
#include <ICIMProperty.h>
#include <ICIMPropertyDecl.h>

#include <exception>
#include <iostream>

#include "Repository.h"

namespace {

namespace vyr = NZELVYR20;

using TType = vyr::TCIMValue::TCIMType;

/// Every element goes through the same steps: allocate, fill, add. Only adding checks it.
boost::shared_ptr<vyr::ICIMClass> DefineLamp(vyr::ICIMNamespace& nameSpace) {
  auto lamp = nameSpace.AllocateClass("Demo_Lamp", {}, {});

  const auto name = lamp->AllocatePropertyDecl("Name", vyr::TCIMValue::Null(TType::kString), {});
  examples::Qualify(nameSpace, *name, "Key", true);
  name->AddToClass({});

  // The default value gives the type, and is what an instance without a value of its own shows.
  lamp->AllocatePropertyDecl("IsOn", false, {})->AddToClass({});

  lamp->AddToNamespace({});
  return lamp;
}

void Print(vyr::ICIMInstance& instance) {
  std::cout << instance.GetReference({}).ToString() << '\n';
  instance.EnumerateProperties(
      [](const boost::shared_ptr<vyr::ICIMProperty>& property) {
        std::cout << "  " << property->GetDeclaration({})->GetName({}) << " = "
                  << property->ToString() << '\n';
        return true;
      },
      {});
}

}  // namespace

int main() try {
  const auto nameSpace = examples::OpenNamespace();
  const auto lamp = DefineLamp(*nameSpace)->AllocateInstance({});
  lamp->SetPropertyValue("Name", "desk", {});
  lamp->SetPropertyValue("IsOn", true, {});
  lamp->AddToNamespace({});

  // Letter case does not count in names, and a path finds what was added.
  const auto path = vyr::TCIMReference::Parse("demo_lamp.name=\"desk\"", nameSpace);
  Print(*nameSpace->GetInstance(path, {}));
  return 0;
} catch (const std::exception& error) {
  std::cerr << "host: " << error.what() << '\n';
  return 1;
}
