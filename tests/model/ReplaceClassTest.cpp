#include <gtest/gtest.h>

#include <new>
#include <string>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMQualifier.h"
#include "TFaults.h"
#include "TInmemNamespaceProvider.h"

namespace NZELVYR20 {
namespace {

/// The random operations give none up that the next would show.
TEST(ReplaceClassTest, AClassThatCouldNotReplaceAnotherIsAsItWas) {
  const std::string name = "Port_WhoseNameIsAllocated";
  for (int n = 1;; ++n) {
    const auto space = TInmemNamespaceProvider::GetInstance()->AllocateNamespace({}, true);
    const auto abstract = space->AllocateQualifierDecl("Abstract", true, {}, {}, {});
    const auto make = [&](const std::string& named, const boost::shared_ptr<ICIMClass>& above) {
      auto made = space->AllocateClass(named, above, {});
      made->AllocateQualifier(abstract, true, {})->AddToClassOrProperty({});
      return made;
    };
    const auto replaced = make(name, {});
    const auto other = make(name, {});
    replaced->AddToNamespace({});
    make("EthernetPort", replaced)->AddToNamespace({});
    TFaults::Arm(TFaults::EKind::kNew, n);
    try {
      other->AddToNamespace({});
    } catch (const std::bad_alloc&) {
    }
    if (!TFaults::Disarm()) return;
    EXPECT_EQ(space->GetClass(name, {}), replaced);
    other->EnumerateSubClasses([](const auto&) { return ADD_FAILURE(), true; }, false, {});
  }
}

}  // namespace
}  // namespace NZELVYR20
