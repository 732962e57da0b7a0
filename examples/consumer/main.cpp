// A consumer: names no class itself. It walks the hierarchy, prints every instance as people read
// it and follows the associations from there.
#include <ICIMPropertyDecl.h>
#include <ListAssociators.h>
#include <ListElements.h>

#include <exception>
#include <iostream>

#include "Disks.h"

namespace vyr = NZELVYR20;

namespace {

/// ToString applies units and value maps; GetValue is what was stored.
void Print(const boost::shared_ptr<vyr::ICIMInstance>& instance) {
  std::cout << "  " << instance->GetReference({}).ToString() << '\n';
  for (const auto& property : vyr::ListProperties(*instance)) {
    std::cout << "    " << property->GetDeclaration({})->GetName({}) << ": " << property->ToString()
              << '\n';
  }
  for (const auto& other : vyr::ListAssociators(instance)) {
    std::cout << "    -> " << other->GetReference({}).ToString() << '\n';
  }
}

void Print(vyr::ICIMClass& cimClass) {
  std::cout << cimClass.GetName({}) << '\n';
  for (const auto& instance : vyr::ListInstances(cimClass, /*deep=*/false)) Print(instance);
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "Usage: consumer FILE\n";
    return 2;
  }
  const auto nameSpace = examples::CollectDisks(argv[1]);
  for (const auto& top : vyr::ListTopClasses(*nameSpace)) {
    Print(*top);
    for (const auto& cimClass : vyr::ListSubClasses(*top, /*deep=*/true)) Print(*cimClass);
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << "consumer: " << error.what() << '\n';
  return 1;
}
