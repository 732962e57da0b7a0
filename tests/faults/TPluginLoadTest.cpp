#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TFaults.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

/// A registration that fails, in the plug-in or in the manager, must not leave through the loader.
/// The plug-in stays mapped once it was loaded, and so each try has a copy of its own.
TEST(TPluginLoadTest, ARegistrationThatFailsLeavesTheProvidersAsTheyWere) {
  namespace fs = std::filesystem;
  const auto find = [] {
    return TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider("inmem");
  };
  const fs::path folder = fs::path(::testing::TempDir()) / "vyr_plugin_load_test";
  fs::create_directories(folder);
  bool isStruck = true;
  int tries = 0;
  while (isStruck && ++tries < 20) {
    const auto before = find();
    const fs::path copy = folder / (std::to_string(tries) + ".so");
    fs::copy_file(INMEM_PLUGIN_PATH, copy, fs::copy_options::overwrite_existing);
    TFaults::Arm(TFaults::EKind::kAllocation, tries);
    const void* const library = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
    isStruck = TFaults::Disarm();
    EXPECT_NE(library, nullptr) << dlerror();
    EXPECT_EQ(find() == before, isStruck) << "n = " << tries;
  }
  EXPECT_FALSE(isStruck);
  EXPECT_GT(tries, 2);
  fs::remove_all(folder);
}

}  // namespace
}  // namespace NZELVYR20
