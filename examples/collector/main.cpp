// A collector: reads a list of disks into the repository and prints the instances' paths.
#include <ICIMClass.h>
#include <ICIMInstance.h>

#include <exception>
#include <iostream>

#include "Disks.h"
#include "Repository.h"

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "Usage: collector FILE\n";
    return 2;
  }
  const auto nameSpace = examples::OpenNamespace();
  examples::DefineDisks(*nameSpace);
  examples::CollectDisks(*nameSpace, argv[1]);

  for (const char* name : {"Demo_Part", "Demo_DiskInShelf"}) {
    nameSpace->GetClass(name, {})->EnumerateInstances(
        [](const boost::shared_ptr<NZELVYR20::ICIMInstance>& instance) {
          std::cout << instance->GetReference({}).ToString() << '\n';
          return true;
        },
        /*deep=*/true, {});
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << "collector: " << error.what() << '\n';
  return 1;
}
