#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

#include "Cases.h"
#include "ListElements.h"
#include "Outline.h"
#include "TClientCall.h"
#include "TSampleService.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kOperationMof = R"(
[Description("A thing")] class T { [Key] string Id; [Description("So many")] uint32 N; string Text[]; };
class S : T { uint8 More = 5; [Override("N")] uint32 N = 3; uint32 Run([In] string P); };
class U : S { boolean Last; };
class Lone { [Key] uint16 Number; [Key] boolean On; };
instance of T { Id = "a"; N = 1; Text = {"", "x & y"}; };
instance of S { Id = "b"; };
instance of U { Id = "c"; Last = true; };
instance of Lone { Number = 7; On = true; };
)";

TEST(Operation, ReturnsWhatItsParametersAskForToEveryClient) {
  TSampleService service(kOperationMof);
  CheckCases("requests.txt", [&](const std::string& given) {
    const TClientCall call = TClientCall::Read(given);
    std::string lines = Lines(service.Ask(call.ByShell()));
    EXPECT_EQ(Lines(service.Ask(call.ByPython())), lines) << given;
    return lines;
  });
}

/// The whole schema of a machine, by the rules of a strict client.
TEST(Operation, DescribesEveryClassOfTheSchema) {
  TSampleService service("", {}, "/vyr.mof");
  const TClientCall call = TClientCall::Read(
      "EnumerateClasses DeepInheritance=TRUE LocalOnly=FALSE IncludeClassOrigin=TRUE");
  const pugi::xml_node answer = service.Ask(call.ByPython()).first_child();
  EXPECT_GT(std::distance(answer.begin(), answer.end()), 80);
}

TEST(Operation, ListsAllQualifiersOnce) {
  TSampleService service(kOperationMof);
  const pugi::xml_node returned =
      service.Ask(TClientCall::Read("EnumerateQualifiers").ByPython()).first_child();
  std::set<std::string> names;
  for (const pugi::xml_node& child : returned.children("QUALIFIER.DECLARATION")) {
    EXPECT_TRUE(names.insert(child.attribute("NAME").value()).second);
  }
  EXPECT_EQ(names.size(), ListQualifierDecls(*service.GetNamespace()).size());
}

}  // namespace
}  // namespace NZELVYR20
