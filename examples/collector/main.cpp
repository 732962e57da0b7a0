// A collector: reads a list of disks into the repository, prints the instances' paths, reads a
// later list into the same namespace and prints what that changed, with the values before.
#include <ICIMClass.h>
#include <ICIMPropertyDecl.h>
#include <ListElements.h>

#include <algorithm>
#include <exception>
#include <iostream>

#include "Disks.h"

namespace vyr = NZELVYR20;

namespace {

vyr::TInstanceList ListParts(vyr::ICIMNamespace& nameSpace) {
  return vyr::ListInstances(*nameSpace.GetClass("Demo_Part", {}), /*deep=*/true);
}

/// Those of the one list that the other lacks.
void PrintMissing(const char* mark, const vyr::TInstanceList& from, const vyr::TInstanceList& in) {
  for (const auto& part : from) {
    if (std::find(in.begin(), in.end(), part) == in.end()) {
      std::cout << mark << part->GetReference({}).ToString() << '\n';
    }
  }
}

void PrintChanges(vyr::ICIMInstance& part) {
  for (const auto& property : vyr::ListProperties(part)) {
    if (!property->IsPrevValueDifferent()) continue;
    std::cout << "* " << part.GetReference({}).ToString() << ' '
              << property->GetDeclaration({})->GetName({}) << ": " << property->PrevValueToString()
              << " -> " << property->ToString() << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "Usage: collector FILE LATER_FILE\n";
    return 2;
  }
  const auto nameSpace = examples::CollectDisks(argv[1]);
  const auto before = ListParts(*nameSpace);
  PrintMissing("", before, {});

  examples::RefreshDisks(nameSpace, argv[2]);
  const auto after = ListParts(*nameSpace);
  PrintMissing("- ", before, after);
  PrintMissing("+ ", after, before);
  for (const auto& part : after) PrintChanges(*part);
  return 0;
} catch (const std::exception& error) {
  std::cerr << "collector: " << error.what() << '\n';
  return 1;
}
