#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

using TNames = std::vector<std::string>;
using TSpace = boost::shared_ptr<ICIMNamespace>;
using TClass = boost::shared_ptr<ICIMClass>;
using TInstance = boost::shared_ptr<ICIMInstance>;

/// The plug-in as a host sees it: a file to load, and what that registers.
class TPluginTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    namesBefore = TRootObject::GetNamespaceProviderManager()->GetNamespaceProviderNames();
    library = dlopen(INMEM_PLUGIN_PATH, RTLD_NOW);
    ASSERT_NE(library, nullptr) << dlerror();
  }

  static boost::shared_ptr<INamespaceProvider> GetProvider() {
    return TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider("inmem");
  }

  static TSpace NewNamespace() { return GetProvider()->AllocateNamespace({}, false); }

  static void Qualify(const TSpace& space, ICIMNamedElement& element, const char* name) {
    const auto any = ICIMQualifierDecl::kAny;
    const auto declaration =
        space->AllocateQualifierDecl(name, true, any, ICIMQualifierDecl::kNoFlavor, {});
    element.AllocateQualifier(declaration, true, {})->AddToClassOrProperty({});
  }

  /// A class with one key, "Id"; an association where that is a reference.
  static TClass DefineClass(const TSpace& space, const char* name, const TCIMValue& key) {
    auto cimClass = space->AllocateClass(name, {}, {});
    if (key.IsReference()) Qualify(space, *cimClass, "Association");
    const auto declaration = cimClass->AllocatePropertyDecl("Id", key, {});
    Qualify(space, *declaration, "Key");
    declaration->AddToClass({});
    cimClass->AddToNamespace({});
    return cimClass;
  }

  static TInstance PutInstance(const TClass& cimClass, const TCIMValue& id) {
    auto instance = cimClass->AllocateInstance({});
    instance->SetPropertyValue("Id", id, {});
    instance->AddToNamespace({});
    return instance;
  }

  static inline TNames namesBefore;
  static inline void* library = nullptr;
};

TEST_F(TPluginTest, RegistersItsProviderWhenLoaded) {
  EXPECT_EQ(namesBefore, TNames{});
  EXPECT_EQ(TRootObject::GetNamespaceProviderManager()->GetNamespaceProviderNames(),
            TNames{"inmem"});
  const auto provider = GetProvider();
  EXPECT_EQ(provider->GetName({}), "inmem");
  EXPECT_EQ(&provider->GetName({}), &provider->GetName({}));
  EXPECT_EQ(provider->GetType({}), 2);
  EXPECT_FALSE(provider->IsIndicationsSupported({}));
  EXPECT_EQ(NewNamespace()->GetNamespaceProvider({}), provider);
}

TEST_F(TPluginTest, NamespacesLiveThroughTheInterfacesAndApart) {
  const auto space = NewNamespace();
  const auto other = NewNamespace();
  const auto port = DefineClass(space, "Port", "");
  const auto link = DefineClass(space, "Link", TCIMValue::NullReference(port));
  const auto instance = PutInstance(port, "a");
  PutInstance(link, instance->GetReference({}));
  EXPECT_EQ(space->GetClass("PORT", {}), port);
  EXPECT_THROW(other->GetClass("Port", {}), TVYRException);
  EXPECT_EQ(space->GetInstance(TCIMReference::Parse("port.ID=\"a\"", space), {}), instance);
  TNames paths;
  const auto note = [&](const TInstance& found) {
    paths.push_back(found->BuildPath({}).GetPath());
    return true;
  };
  instance->EnumerateAssociationInstances(note, "Link", "Id", {});
  EXPECT_EQ(paths, TNames{"Link.id=\"Port.id=\\\"a\\\"\""});
  EXPECT_EQ(instance->GetProperty("HealthState", {})->ToString(), "0");
}

TEST_F(TPluginTest, ExceptionsAndTypesAreTheSameOnBothSides) {
  const auto space = NewNamespace();
  const auto port = DefineClass(space, "Port", "");
  const auto instance = PutInstance(port, "a");
  try {
    instance->GetProperty("Speed", {});
    FAIL() << "nothing was thrown";
  } catch (const std::exception& failure) {
    const auto* known = dynamic_cast<const TVYRException*>(&failure);
    ASSERT_NE(known, nullptr);
    EXPECT_EQ(known->GetStatusCode(), 15);
    EXPECT_STREQ(known->what(), TVYRStatusCode(15).TranslateStatusCode());
  }
  const auto path = instance->GetReference({});
  EXPECT_EQ(boost::dynamic_pointer_cast<ICIMInstance>(path.GetCIMElement(false)), instance);
  const auto element = path.GetCIMElement(true);
  EXPECT_EQ(boost::dynamic_pointer_cast<ICIMClass>(element), port);
  EXPECT_NE(boost::dynamic_pointer_cast<ICIMNamedElement>(element), nullptr);
  EXPECT_EQ(boost::dynamic_pointer_cast<ICIMInstance>(element), nullptr);
  const auto fail = [](const boost::shared_ptr<ICIMProperty>&) -> bool { throw 42; };
  EXPECT_THROW(instance->EnumerateProperties(fail, {}), int);
}

TEST_F(TPluginTest, MayBeLoadedAgainAndClosedWhileNamespacesLive) {
  const auto provider = GetProvider();
  const auto space = NewNamespace();
  const auto port = DefineClass(space, "Port", "");
  void* again = dlopen(INMEM_PLUGIN_PATH, RTLD_LAZY);
  EXPECT_EQ(again, library);
  EXPECT_EQ(dlclose(again) + dlclose(library), 0);
  const auto path = PutInstance(port, "a")->GetReference({});
  EXPECT_EQ(space->GetInstance(path, {})->GetClass({}), port);
  EXPECT_NE(NewNamespace(), space);
  library = dlopen(INMEM_PLUGIN_PATH, RTLD_NOW);
  EXPECT_EQ(GetProvider(), provider);
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

/// Older than the plug-in where it was asked for first: it then outlives the plug-in's statics.
TSpace& GetLastingNamespace() {
  static TSpace space;
  return space;
}

TEST(TPluginExitTest, ProcessEndsCleanlyWithNamespacesAlive) {
  const auto leave = [] {
    TSpace& lasting = GetLastingNamespace();
    dlopen(INMEM_PLUGIN_PATH, RTLD_NOW);
    const auto manager = TRootObject::GetNamespaceProviderManager();
    const auto provider = manager->FindNamespaceProvider("inmem");
    static const TSpace younger = provider->AllocateNamespace({}, false);
    lasting = provider->AllocateNamespace({}, false);
    std::exit(0);
  };
  EXPECT_EXIT(leave(), ::testing::ExitedWithCode(0), "^$");
}

}  // namespace
}  // namespace NZELVYR20
