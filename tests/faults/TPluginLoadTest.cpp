#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TFaults.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

/// The plug-in stays mapped once it was loaded, and so each try has a copy of its own.
void LoadWithFaults() {
  namespace fs = std::filesystem;
  const auto find = [] {
    return TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider("inmem");
  };
  const fs::path folder = fs::path(::testing::TempDir()) / "vyr_plugin_load_test";
  fs::create_directories(folder);
  int tries = 0;
  for (const auto kind : {TFaults::EKind::kNew, TFaults::EKind::kC}) {
    bool isStruck = true;
    for (int n = 1; isStruck && n < 200; ++n) {
      SCOPED_TRACE(++tries);
      const auto before = find();
      const fs::path copy = folder / (std::to_string(tries) + ".so");
      fs::copy_file(INMEM_PLUGIN_PATH, copy, fs::copy_options::overwrite_existing);
      TFaults::Arm(kind, n);
      const void* const library = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
      isStruck = TFaults::Disarm();
      // The loader itself has failed, or has found its way.
      const bool isLoaded = library != nullptr && (kind == TFaults::EKind::kC || !isStruck);
      EXPECT_TRUE(library != nullptr || kind == TFaults::EKind::kC) << dlerror();
      EXPECT_EQ(find() != before, isLoaded);
    }
    EXPECT_FALSE(isStruck);
  }
  EXPECT_GT(tries, 3);
  fs::remove_all(folder);
}

/// A registration that fails, in the plug-in or in the manager, must not leave through the loader.
/// In a process of its own: where a copy has registered, no other one will be loaded.
TEST(TPluginLoadTest, ARegistrationThatFailsLeavesTheProvidersAsTheyWere) {
  EXPECT_EXIT(
      {
        LoadWithFaults();
        std::exit(::testing::Test::HasFailure() ? 1 : 0);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace NZELVYR20
