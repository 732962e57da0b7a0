#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"
#include "TRootObject.h"
#include "TVYRException.h"
#include "UseNamespace.h"

namespace NZELVYR20 {
namespace {

using TNames = std::vector<std::string>;

/// The plug-in as a host sees it: a file to load, and what that registers.
class TPluginTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    namesBefore = TRootObject::GetNamespaceProviderManager()->GetNamespaceProviderNames();
    library = dlopen(INMEM_PLUGIN_PATH, RTLD_NOW);
    ASSERT_NE(library, nullptr) << dlerror();
  }

  static inline TNames namesBefore;
  static inline void* library = nullptr;
};

TEST_F(TPluginTest, RegistersItsProviderWhenLoaded) {
  EXPECT_EQ(namesBefore, TNames{});
  const auto manager = TRootObject::GetNamespaceProviderManager();
  EXPECT_EQ(manager->GetNamespaceProviderNames(), TNames{"inmem"});
  const auto provider = manager->FindNamespaceProvider("inmem");
  EXPECT_EQ(provider->GetName({}), "inmem");
  EXPECT_EQ(&provider->GetName({}), &provider->GetName({}));
  EXPECT_EQ(provider->GetType({}), 2);
  EXPECT_FALSE(provider->IsIndicationsSupported({}));
  EXPECT_EQ(AllocatePluginNamespace()->GetNamespaceProvider({}), provider);
}

TEST_F(TPluginTest, NamespacesLiveThroughTheInterfacesAndApart) {
  const auto space = AllocatePluginNamespace();
  EXPECT_EQ(UseNamespace(space), kAllIsWell);
  EXPECT_TRUE(space->GetClass("PORT", {}));
  EXPECT_THROW(AllocatePluginNamespace()->GetClass("Port", {}), TVYRException);
}

TEST_F(TPluginTest, NamesAndTextsOfAMegabyteAndPathsInPaths) {
  constexpr std::size_t kMegabyte = 1U << 20U;
  const auto space = AllocatePluginNamespace();
  const std::string name(kMegabyte, 'N');
  const std::string text(kMegabyte, '"');
  const auto cimClass = AddClass(space, name, "");
  const auto instance = AddInstance(cimClass, text);
  EXPECT_EQ(space->GetClass(std::string(kMegabyte, 'n'), {}), cimClass);
  const std::string path = instance->GetReference({}).ToString();
  EXPECT_EQ(path.size(), 3 * kMegabyte + std::string(".Id=\"\"").size());
  EXPECT_EQ(space->GetInstance(TCIMReference::Parse(path, space), {}), instance);

  const auto leaf = AddInstance(AddClass(space, "Leaf", ""), "a");
  const auto nested = AddNestedInstances(space, leaf, 5)->GetReference({});
  EXPECT_EQ(TCIMReference::Parse(nested.ToString(), space).GetPath(), nested.GetPath());
  const auto other = AllocatePluginNamespace();
  const auto otherLeaf = AddInstance(AddClass(other, "Leaf", ""), "a");
  EXPECT_THROW(AddNestedInstances(other, otherLeaf, 30), std::length_error);
}

TEST_F(TPluginTest, ExportsNothing) {
  for (const char* name : {"_ZN9NZELVYR2023TInmemNamespaceProvider11GetInstanceEv",
                           "_ZTVN9NZELVYR2015TInmemNamespaceE", "_ZTIN9NZELVYR2011TInmemClassE"}) {
    EXPECT_EQ(dlsym(library, name), nullptr) << name;
  }
  // Without the tool there is no output either; the look-ups above remain.
  const std::unique_ptr<FILE, int (*)(FILE*)> output(
      popen("nm -DC --defined-only '" INMEM_PLUGIN_PATH "' 2>/dev/null", "r"), pclose);
  std::array<char, 4096> text{};
  EXPECT_EQ(fread(text.data(), 1, text.size() - 1, output.get()), 0U) << text.data();
}

}  // namespace
}  // namespace NZELVYR20
