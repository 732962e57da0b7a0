#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What the random operations do not reach.
using TInmemClassTest = TRepositoryTest;

TEST_F(TInmemClassTest, FindsEachAssociatedClassOnce) {
  const TClass disk = DefineClass("Disk");
  const TClass system = DefineClass("System");
  DefineAssociation("Triple", {{"A", disk}, {"B", system}, {"C", system}});
  EXPECT_EQ(NamesOf([&](const TNamer& note) {
              disk->EnumerateAssociatedClasses(note, "", "", "", "", {});
            }),
            TNames{"System"});
}

TEST_F(TInmemClassTest, FalseEndsTheWalkAmongSiblingsOnly) {
  const TClass device = DefineClass("Device");
  const TClass port = DefineClass("Port", device);
  DefineClass("EtherPort", port), DefineClass("SerialPort", port), DefineClass("Disk", device);
  TNames names;
  const auto note = [&](const TClass& subClass) {
    names.push_back(subClass->GetName({}));
    return names.back() != "EtherPort";
  };
  device->EnumerateSubClasses(note, true, {});
  EXPECT_EQ(names, (TNames{"Port", "EtherPort", "Disk"}));
}

TEST_F(TInmemClassTest, DoesLittleElse) {
  const TClass port = DefineClass("Port");
  const TClass other = NewClass("Other");
  port->ModifyClass(other, {});
  EXPECT_EQ(&(*port = *other), port.get());
  EXPECT_EQ(port->GetName({}), "Port");
  EXPECT_TRUE(port->GetPropertyDecl("Id", {}));
  other->AddAssociationClass(port);
  other->AddAssociationClass(port);
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { other->RemoveAssociationClass(port); }), Quiet(status));
  }
  TCIMContext parameters;
  EXPECT_EQ(port->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(Try([&] { port->GetProperty("Id", {}); }), Quiet(15));
  EXPECT_EQ(Try([&] { port->SetPropertyValue("Id", TCIMValue("1"), {}); }), Quiet(15));
}

}  // namespace
}  // namespace NZELVYR20
