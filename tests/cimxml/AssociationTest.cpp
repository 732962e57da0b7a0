#include <gtest/gtest.h>

#include <string>

#include "Cases.h"
#include "Outline.h"
#include "TClientCall.h"
#include "TSampleService.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kAssociationMof = R"(
class T { [Key] string Id; uint32 N; string Lower; };
class S : T { };
class U : S { boolean Last; string Class; };
class Lone { [Key] uint16 Number; };
class CIM_ComputerSystem { [Key] string Name; };
[Association] class Link { [Key] T ref From; [Key] T ref To; };
[Association] class Deep : Link { [Override("To")] S ref To; T ref By; };
instance of CIM_ComputerSystem { Name = "box"; };
instance of T { Id = "a"; N = 1; };
instance of T { Id = "it's \""; };
instance of S { Id = "b"; N = 2; };
instance of U { Id = "c"; Last = true; Class = "p"; };
instance of Link { From = "T.Id=\"a\""; To = "S.Id=\"b\""; };
instance of Deep { From = "T.Id=\"a\""; To = "S.Id=\"b\""; By = "U.Id=\"c\""; };
instance of Link { From = "T.Id=\"a\""; To = "T.Id=\"a\""; };
)";

TEST(Association, WhatIsAssociatedAskedForOrOfTheServerItselfIsFound) {
  TSampleService service(kAssociationMof);
  CheckCases("associations.txt", [&](const std::string& given) {
    return Lines(service.Ask(TClientCall::Read(given).ByPython()));
  });
}

}  // namespace
}  // namespace NZELVYR20
