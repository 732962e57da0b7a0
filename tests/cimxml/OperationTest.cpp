#include <gtest/gtest.h>

#include <boost/algorithm/string/join.hpp>
#include <set>
#include <string>
#include <vector>

#include "Cases.h"
#include "ListElements.h"
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

/// An element in short: its name, the names in its attributes, and in brackets what it holds.
std::string Outline(const pugi::xml_node& node) {
  if (node.type() != pugi::node_element) return '\'' + std::string(node.value()) + '\'';
  std::string text = node.name();
  for (const char* name : {"NAME", "CLASSNAME", "CLASSORIGIN", "CODE"}) {
    if (const pugi::xml_attribute found = node.attribute(name)) {
      text += std::string(name == std::string("CLASSORIGIN") ? "@" : " ") + found.value();
    }
  }
  std::vector<std::string> parts;
  for (const pugi::xml_node& child : node.children()) parts.push_back(Outline(child));
  return parts.empty() ? text : text + " [" + boost::join(parts, ", ") + ']';
}

/// What an operation returns, each element on a line of its own.
std::string Lines(const pugi::xml_node& response) {
  const pugi::xml_node returned = response.child("IRETURNVALUE");
  if (!returned) return Outline(response.first_child());
  std::vector<std::string> lines;
  for (const pugi::xml_node& child : returned.children()) lines.push_back(Outline(child));
  return lines.empty() ? "nothing" : boost::join(lines, "\n");
}

TEST(Operation, ReturnsWhatItsParametersAskForToEveryClient) {
  TSampleService service(kOperationMof);
  CheckCases("requests.txt", [&](const std::string& given) {
    const TClientCall call = TClientCall::Read(given);
    const std::string lines = Lines(service.Ask(call.ByShell()));
    EXPECT_EQ(Lines(service.Ask(call.ByPython())), lines) << given;
    return lines;
  });
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
