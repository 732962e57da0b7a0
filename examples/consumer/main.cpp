// A consumer: names no class itself. It walks the hierarchy, prints every instance as people read
// it and follows the associations from there.
#include <ICIMClass.h>
#include <ICIMInstance.h>
#include <ICIMProperty.h>
#include <ICIMPropertyDecl.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "Disks.h"
#include "Repository.h"

namespace {

namespace vyr = NZELVYR20;

using TClassPtr = boost::shared_ptr<vyr::ICIMClass>;
using TInstancePtr = boost::shared_ptr<vyr::ICIMInstance>;
using TPropertyPtr = boost::shared_ptr<vyr::ICIMProperty>;

/// Many enumerations discard what their callback throws: this one only gathers.
std::vector<TClassPtr> GetTopClasses(vyr::ICIMNamespace& nameSpace) {
  std::vector<TClassPtr> classes;
  const auto gather = [&classes](const TClassPtr& cimClass) {
    classes.push_back(cimClass);
    return true;
  };
  nameSpace.EnumerateRootClasses(gather, {});
  return classes;
}

/// ToString applies units and value maps; GetValue is what was stored.
void PrintProperties(vyr::ICIMInstance& instance) {
  const auto print = [](const TPropertyPtr& property) {
    std::cout << "    " << property->GetDeclaration({})->GetName({}) << ": " << property->ToString()
              << '\n';
    return true;
  };
  instance.EnumerateProperties(print, {});
}

/// The result class has to be named; a class at the top stands for all below it.
void PrintAssociated(vyr::ICIMInstance& instance, const std::vector<TClassPtr>& topClasses) {
  const auto print = [](const TInstancePtr& other) {
    std::cout << "    -> " << other->GetReference({}).ToString() << '\n';
    return true;
  };
  for (const TClassPtr& top : topClasses) {
    instance.EnumerateAssociatedInstances(print, "", top->GetName({}), "", "", {});
  }
}

void PrintInstances(vyr::ICIMClass& cimClass, const std::vector<TClassPtr>& topClasses) {
  const auto print = [&topClasses](const TInstancePtr& instance) {
    std::cout << "  " << instance->GetReference({}).ToString() << '\n';
    PrintProperties(*instance);
    PrintAssociated(*instance, topClasses);
    return true;
  };
  std::cout << cimClass.GetName({}) << '\n';
  cimClass.EnumerateInstances(print, /*deep=*/false, {});
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "Usage: consumer FILE\n";
    return 2;
  }
  const auto nameSpace = examples::OpenNamespace();
  examples::DefineDisks(*nameSpace);
  examples::CollectDisks(*nameSpace, argv[1]);

  const auto topClasses = GetTopClasses(*nameSpace);
  const auto print = [&topClasses](const TClassPtr& cimClass) {
    PrintInstances(*cimClass, topClasses);
    return true;
  };
  for (const TClassPtr& top : topClasses) {
    print(top);
    top->EnumerateSubClasses(print, /*deep=*/true, {});
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << "consumer: " << error.what() << '\n';
  return 1;
}
