#include <gtest/gtest.h>

#include <string>

#include "Cases.h"
#include "ListClasses.h"
#include "TCommandError.h"
#include "TElementFinder.h"
#include "THostNamespace.h"
#include "TMofLoader.h"
#include "TPrinter.h"
#include "TSampleMachine.h"
#include "TShortPaths.h"

namespace NZELVYR20 {
namespace {

/// A machine, and what has names that could be read in more than one way.
class TOddMachine : public THostNamespace {
 public:
  explicit TOddMachine(const std::string& root) : THostNamespace(root) {
    TMofLoader loader(Get(), {}, [](const std::string& message) { ADD_FAILURE() << message; });
    loader.Read(DATA_DIR "/odd.mof");
    loader.Enter();
  }
};

TEST(ShortPaths, LeadBackToTheirInstances) {
  const TSampleMachine tree;
  for (const std::string& root : {tree.GetRoot(), std::string("/")}) {
    const TOddMachine machine(root);
    const TElementFinder finder(machine.Get());
    TShortPaths paths;
    std::size_t shorter = 0;
    std::size_t count = 0;
    for (const auto& cimClass : ListAllClasses(*machine.Get())) {
      for (const auto& instance : ListInstances(*cimClass, false)) {
        const std::string path = paths.For(*instance);
        EXPECT_EQ(finder.FindInstance(path), instance) << path;
        ++count;
        if (path.size() < TPrinter::PathText(*instance).size()) ++shorter;
      }
    }
    EXPECT_EQ(count - shorter, 2U);  // two slots that only their owners tell apart
  }
}

TEST(ShortPaths, AreReadAsTheyAreMeant) {
  const TSampleMachine tree;
  const TOddMachine machine(tree.GetRoot());
  const TElementFinder finder(machine.Get());
  CheckCases("short_paths.txt", [&](const std::string& typed) {
    try {
      return TShortPaths().For(*finder.FindInstance(typed));
    } catch (const TCommandError& error) {
      const std::string message = error.what();
      return message.size() > 300 ? message.substr(0, message.find(": ")) : message;
    }
  });
}

}  // namespace
}  // namespace NZELVYR20
