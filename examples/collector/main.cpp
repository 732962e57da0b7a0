// A collector: reads a list of disks into the repository and prints the instances' paths.
#include <ICIMClass.h>
#include <ListElements.h>

#include <exception>
#include <iostream>

#include "Disks.h"

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "Usage: collector FILE\n";
    return 2;
  }
  const auto nameSpace = examples::CollectDisks(argv[1]);
  for (const char* name : {"Demo_Part", "Demo_DiskInShelf"}) {
    const auto cimClass = nameSpace->GetClass(name, {});
    for (const auto& instance : NZELVYR20::ListInstances(*cimClass, /*deep=*/true)) {
      std::cout << instance->GetReference({}).ToString() << '\n';
    }
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << "collector: " << error.what() << '\n';
  return 1;
}
