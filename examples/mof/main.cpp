// MOF in and out: loads a file below the classes of the machine's data, says what is wrong with it,
// and writes its instances and those of the machine's systems as MOF.
#include <ICIMClass.h>
#include <ListElements.h>
#include <LoadMof.h>
#include <OpenNamespace.h>
#include <TMofWriter.h>

#include <exception>
#include <iostream>

namespace vyr = NZELVYR20;

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "Usage: mof FILE\n";
    return 2;
  }
  const auto nameSpace = vyr::OpenNamespace();
  vyr::LoadSchema(nameSpace);
  const auto say = [](const std::string& message) { std::cerr << message << '\n'; };
  const auto summary = vyr::LoadMof(nameSpace, {argv[1]}, say);
  std::cout << "// " << summary.classes.declared << " class, " << summary.instances.declared
            << " instances\n";
  for (const auto& instance : vyr::ListInstances(*nameSpace->GetClass("", {}), /*deep=*/true)) {
    std::cout << vyr::TMofWriter::WriteInstance(instance);
  }
  return summary.IsWhole() ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << "mof: " << error.what() << '\n';
  return 1;
}
