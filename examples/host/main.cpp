// A host: opens a namespace, defines a class, adds an instance and prints it.
#include <ICIMPropertyDecl.h>
#include <ListElements.h>
#include <OpenNamespace.h>
#include <TClassDraft.h>
#include <TInstanceDraft.h>

#include <exception>
#include <iostream>

namespace vyr = NZELVYR20;

namespace {

void DefineLamp(const boost::shared_ptr<vyr::ICIMNamespace>& nameSpace) {
  vyr::DeclareStandardQualifiers(*nameSpace);
  // A default is what an instance without a value of its own shows.
  vyr::TClassDraft(nameSpace, "Demo_Lamp")
      .AddProperty("Name", vyr::TCIMValue::TCIMType::kString, {{"Key", true}})
      .AddProperty("IsOn", false)
      .Add();
}

void Print(vyr::ICIMInstance& instance) {
  std::cout << instance.GetReference({}).ToString() << '\n';
  for (const auto& property : vyr::ListProperties(instance)) {
    std::cout << "  " << property->GetDeclaration({})->GetName({}) << " = " << property->ToString()
              << '\n';
  }
}

}  // namespace

int main() try {
  const auto nameSpace = vyr::OpenNamespace();
  DefineLamp(nameSpace);
  vyr::TInstanceDraft(nameSpace, "Demo_Lamp").Set("Name", "desk").Set("IsOn", true).Add();

  // Letter case does not count in names, and a path finds what was added.
  const auto path = vyr::TCIMReference::Parse("demo_lamp.name=\"desk\"", nameSpace);
  Print(*nameSpace->GetInstance(path, {}));
  return 0;
} catch (const std::exception& error) {
  std::cerr << "host: " << error.what() << '\n';
  return 1;
}
