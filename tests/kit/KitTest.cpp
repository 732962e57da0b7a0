#include <dlfcn.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include "INamespaceProviderManager.h"
#include "ListAssociators.h"
#include "ListElements.h"
#include "OpenNamespace.h"
#include "ReadValue.h"
#include "TClassDraft.h"
#include "TForwardingNamespace.h"
#include "TInstanceDraft.h"
#include "TKitError.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// Lamps in rooms, and switches that join a lamp, a room and another lamp.
class KitTest : public testing::Test {
 protected:
  KitTest() {
    DeclareStandardQualifiers(*space_);
    TClassDraft(space_, "Room").AddProperty("Name", TType::kString, {{"Key", true}}).Add();
    TClassDraft(space_, "Lamp", "Room")
        .AddProperty("Count", TType::kUInt32, {{"Units", "Bits"}})
        .AddProperty("IsOn", false)
        .AddMethod("Turn", TType::kUInt32)
        .Add();
    TClassDraft(space_, "Switch")
        .Qualify("Association", true)
        .AddReference("First", "Lamp", {{"Key", true}})
        .AddReference("Room", "Room", {{"Key", true}})
        .AddReference("Second", "Lamp")
        .Add();
  }
  ~KitTest() override { TRootObject::SetLogThreshold(3); }

  TCIMReference AddNamed(const std::string& className, const std::string& name) {
    return TInstanceDraft(space_, className).Set("Name", name).Add();
  }
  boost::shared_ptr<ICIMInstance> Find(const TCIMReference& path) {
    return space_->GetInstance(path, {});
  }
  static std::string Names(const TInstanceList& instances) {
    std::string names;
    for (const auto& instance : instances) names += ReadText(*instance, "Name") + ' ';
    return names;
  }

  const boost::shared_ptr<ICIMNamespace> space_ = OpenNamespace(INMEM_PLUGIN_PATH);
};

struct TFailure {
  const char* text;
  std::function<void(const boost::shared_ptr<ICIMNamespace>&)> run;
};

TEST_F(KitTest, FailuresNameTheirSubject) {
  TRootObject::SetLogThreshold(-1);
  const TFailure failures[] = {
      {"Lamp.Count = sint32 5: the type does not match (uint32)",
       [](auto& space) { TInstanceDraft(space, "Lamp").Set("Count", 5).Add(); }},
      {"Lamp.Colour = string red: not declared",
       [](auto& space) { TInstanceDraft(space, "Lamp").Set("Colour", "red").Add(); }},
      {"Lamp.Name: a key has no value", [](auto& space) { TInstanceDraft(space, "Lamp").Add(); }},
      {"Switch.First = Lamp.Name=\"gone\": leads nowhere",
       [](auto& space) {
         const auto path = TCIMReference::Parse("Lamp.Name=\"gone\"", space);
         TInstanceDraft(space, "Switch").Set("First", path).Set("Room", path).Add();
       }},
      {"class Tape: The element was not found.",
       [](auto& space) { TInstanceDraft(space, "Tape"); }},
      {"class Tape: The element was not found.",
       [](auto& space) { TClassDraft(space, "Reel", "Tape"); }},
      {"class Lamp: declared already", [](auto& space) { TClassDraft(space, "lamp"); }},
      {"class Reel: The class has no key property.",
       [](auto& space) { TClassDraft(space, "Reel").Add(); }},
      {"class Reel: qualifier Colour: not declared",
       [](auto& space) { TClassDraft(space, "Reel").Qualify("Colour", "red"); }},
      {"Reel.Size: qualifier Colour: not declared",
       [](auto& space) {
         TClassDraft(space, "Reel").AddProperty("Size", 1, {{"Colour", 1}});
       }},
      {"Reel.Room: Only an association may declare a reference.",
       [](auto& space) { TClassDraft(space, "Reel").AddReference("Room", "Room"); }},
      {"Reel.Room: class Tape: The element was not found.",
       [](auto& space) { TClassDraft(space, "Reel").AddReference("Room", "Tape"); }},
      {"Reel.Name: the declaration that is there stays",
       [](auto& space) { TClassDraft(space, "Reel", "Room").AddProperty("Name", "x"); }},
      {"Bulb.Turn(): The name is already defined.",
       [](auto& space) { TClassDraft(space, "Bulb", "Lamp").AddMethod("Turn", TType::kUInt8); }},
      {"qualifier Key: The name is already defined.",
       [](auto& space) { DeclareQualifier(*space, "Key", false); }},
      {"Lamp: no namespace was given", [](auto&) { TClassDraft({}, "Lamp"); }},
      {"Lamp: no namespace was given", [](auto&) { TInstanceDraft({}, "Lamp"); }},
      {"forwarding: no namespace was given", [](auto&) { TForwardingNamespace({}); }},
      {"associators: no instance was given", [](auto&) { ListAssociators({}); }},
      {"references: no instance was given", [](auto&) { ListReferences({}); }},
      {"/nowhere/x.so: the provider \"inmem\" is that of " INMEM_PLUGIN_PATH,
       [](auto&) { OpenNamespace("/nowhere/x.so"); }},
  };
  for (const TFailure& failure : failures) {
    try {
      failure.run(space_);
      ADD_FAILURE() << "no failure: " << failure.text;
    } catch (const TKitError& error) {
      std::string text = error.what();
      if (text.rfind("class lamp", 0) == 0) text[6] = 'L';
      EXPECT_EQ(text, failure.text);
    }
  }
}

TEST_F(KitTest, ASlipIsKeptAndTheRestAdded) {
  TRootObject::SetLogThreshold(-1);
  TInstanceDraft draft(space_, "Lamp");
  draft.Set("Name", "desk").Set("Count", 5).Set("IsOn", std::optional<bool>()).SetText("Name", "");
  ASSERT_EQ(draft.GetSlips().size(), 1U);
  draft.AddAnyway();
  EXPECT_TRUE(draft.FindPath());
  EXPECT_EQ(ListInstances(*space_->GetClass("Room", {}), true).size(), 1U);
  EXPECT_EQ(TInstanceDraft(space_, "Lamp").Set("Name", "desk").FindPath(), std::nullopt);
}

TEST_F(KitTest, ReadsAValueAsATypeOrNothing) {
  const auto lamp = Find(TInstanceDraft(space_, "Lamp")
                             .Set("Name", "desk")
                             .Set("Count", std::optional<std::uint32_t>(70))
                             .Add());
  EXPECT_EQ(ReadAs<std::uint32_t>(*lamp, "count"), 70U);
  EXPECT_EQ(ReadAs<std::uint16_t>(*lamp, "Count"), std::nullopt);
  EXPECT_EQ(ReadAs<bool>(*lamp, "IsOn"), false);
  EXPECT_EQ(ReadText(*lamp, "Count"), "70 Bits");
  // What instances answer for all the same is not declared by reading.
  EXPECT_TRUE(ReadValue(*lamp, "Description").IsNull());
  EXPECT_EQ(ListPropertyDecls(*space_->GetClass("Lamp", {})).size(), 3U);
}

TEST_F(KitTest, RolesAreTheEndsAtWhichInstancesStand) {
  const auto room = AddNamed("Room", "hall");
  const auto left = AddNamed("Lamp", "left");
  const auto right = AddNamed("Lamp", "right");
  TInstanceDraft(space_, "Switch").Set("First", left).Set("Room", room).Set("Second", right).Add();
  const auto find = [&](const TCIMReference& path, const TAssociationFilter& filter) {
    return Names(ListAssociators(Find(path), filter));
  };
  EXPECT_EQ(find(left, {}), "hall right ");
  EXPECT_EQ(find(left, {"switch", "lamp", "FIRST", ""}), "right ");
  EXPECT_EQ(find(left, {"", "", "Second", ""}), "");
  EXPECT_EQ(find(room, {"", "", "", "second"}), "right ");
  EXPECT_EQ(ListReferences(Find(right), "", "Second").size(), 1U);
  EXPECT_EQ(ListReferences(Find(right), "", "First").size(), 0U);
  EXPECT_THROW(find(left, {"Tape", "", "", ""}), TVYRException);
}

TEST_F(KitTest, ListsPassOnWhatTheWalkDiscards) {
  AddNamed("Lamp", "left"), AddNamed("Lamp", "right");
  struct TScarce {
    TScarce(const boost::shared_ptr<ICIMInstance>&) {}
    TScarce(const TScarce&) { throw std::bad_alloc(); }
  };
  int calls = 0;
  const auto walk = [&](const TCIMInstanceCallback& callback) {
    space_->GetClass("Lamp", {})
        ->EnumerateInstances([&](const auto& instance) { return ++calls, callback(instance); },
                             false, {});
  };
  EXPECT_THROW(ListElements<TScarce>(walk), std::bad_alloc);
  EXPECT_EQ(calls, 2);
}

/// A copy of the plug-in, in a file of its own.
struct TCopy {
  TCopy() { std::filesystem::copy_file(INMEM_PLUGIN_PATH, path); }
  ~TCopy() { std::filesystem::remove(path); }
  const std::string path = testing::TempDir() + "another_inmem.nsp.so";
};

TEST_F(KitTest, AnotherCopyOfThePlugInIsNotLoaded) {
  const TCopy copy;
  for (int time = 0; time < 2; ++time) EXPECT_THROW(OpenNamespace(copy.path), TKitError);
  EXPECT_EQ(dlopen(copy.path.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
  EXPECT_EQ(LoadProvider(INMEM_PLUGIN_PATH), space_->GetNamespaceProvider({}));
}

TEST_F(KitTest, AnotherCopyThatWasLoadedIsNotTakenForThePlugIn) {
  const TCopy copy;
  const auto own = LoadProvider(INMEM_PLUGIN_PATH);
  ASSERT_NE(dlopen(copy.path.c_str(), RTLD_NOW), nullptr);
  EXPECT_THROW(OpenNamespace(INMEM_PLUGIN_PATH), TKitError);
  EXPECT_NE(LoadProvider(copy.path), own);
  TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(own);
  EXPECT_THROW(OpenNamespace(copy.path), TKitError);
}

TEST(LoadProviderTest, SaysWhatCannotBeLoaded) {
  const auto load = [] {
    try {
      LoadProvider("/nowhere/x.so");
    } catch (const TKitError& error) {
      std::cerr << error.what();
      std::quick_exit(1);
    }
  };
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // in a process without the plug-in
  EXPECT_EXIT(load(), testing::ExitedWithCode(1), "cannot load the plug-in: /nowhere/x.so: cannot");
}

TEST_F(KitTest, AHostsNamespacePassesOnWhatItDoesNotOverride) {
  struct THall : TForwardingNamespace {
    using TForwardingNamespace::TForwardingNamespace;
    using TForwardingNamespace::operator=;
    boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference&, TCIMContext) override {
      return hall;
    }
    boost::shared_ptr<ICIMInstance> hall;
  };
  const auto host = boost::make_shared<THall>(space_);
  DeclareQualifier(*host, "Colour", "red");
  TClassDraft(host, "Attic", "Room").Add();
  EXPECT_EQ(ListTopClasses(*host), ListTopClasses(*space_));
  EXPECT_EQ(ListQualifierDecls(*host), ListQualifierDecls(*space_));
  EXPECT_EQ(host->GetQualifierDecl("Colour", {}), space_->GetQualifierDecl("Colour", {}));
  EXPECT_EQ(host->GetNamespaceProvider({}), space_->GetNamespaceProvider({}));
  EXPECT_THROW(host->DeleteInstance(AddNamed("Room", "cellar"), {}), TVYRException);

  host->hall = Find(AddNamed("Room", "hall"));
  const auto attic = TCIMReference::Parse("Attic.Name=\"a\"", host);
  const auto desk = AddNamed("Lamp", "desk");
  TInstanceDraft(space_, "Switch").Set("First", desk).Set("Room", attic).Set("Second", desk).Add();
  EXPECT_EQ(Names(ListAssociators(Find(desk), {"", "", "First", "Room"})), "hall ");
  host->ClearInstances();
  EXPECT_TRUE(ListInstances(*space_->GetClass("Room", {}), true).empty());
}

}  // namespace
}  // namespace NZELVYR20
