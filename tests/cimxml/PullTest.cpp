#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "Outline.h"
#include "TClientCall.h"
#include "TSampleService.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kPullMof = R"(
class T { [Key] string Id; uint32 N; };
class S : T { uint32 More = 5; };
[Association] class Link { [Key] T ref From; [Key] T ref To; };
instance of T { Id = "a"; }; instance of T { Id = "b"; N = 2; }; instance of S { Id = "c"; };
instance of Link { From = "T.Id=\"a\""; To = "T.Id=\"b\""; };
instance of Link { From = "T.Id=\"a\""; To = "S.Id=\"c\""; };
)";

/// A client that takes enumerations by the piece.
class TPuller {
 public:
  explicit TPuller(TWbemLimits limits = {}) : service_(kPullMof, std::move(limits)) {}

  /// What comes of a call: the names of instances, and whether it is at its end; or the status.
  /// "$" stands for the context that came last and was not empty.
  std::string operator()(std::string line) {
    const std::size_t place = line.find('$');
    if (place != std::string::npos) line.replace(place, 1, context_);
    const pugi::xml_node response = service_.Ask(TClientCall::Read(line).ByPython());
    if (const auto error = response.child("ERROR")) return error.attribute("CODE").value();
    if (!response.first_child()) return "closed";
    const std::string context = Parameter(response, "EnumerationContext");
    const std::string end = Parameter(response, "EndOfSequence");
    EXPECT_EQ(context.empty(), end == "TRUE");
    if (!context.empty()) context_ = context;
    std::string found;
    for (const pugi::xml_node& node : response.child("IRETURNVALUE")) {
      form_ = node.name();
      const auto id = node.find_node([](const pugi::xml_node& inner) {
        return inner.name() == std::string("KEYVALUE") || inner.name() == std::string("VALUE");
      });
      found += id.child_value();
    }
    return found + (end == "TRUE" ? "." : "+");
  }

  const std::string& GetForm() const { return form_; }
  ICIMNamespace& GetNamespace() { return *service_.GetNamespace(); }

 private:
  static std::string Parameter(const pugi::xml_node& response, const char* name) {
    return response.find_child_by_attribute("PARAMVALUE", "NAME", name)
        .child("VALUE")
        .child_value();
  }

  TSampleService service_;
  std::string context_;
  std::string form_;
};

TEST(Pull, EnumerationsComeByThePieceAndInTheirForm) {
  TPuller pull;
  const struct {
    const char* open;
    const char* pull;
    const char* all;
    const char* form;
  } rows[] = {
      {"OpenEnumerateInstances ClassName=:T", "PullInstancesWithPath", "abc",
       "VALUE.INSTANCEWITHPATH"},
      {"OpenEnumerateInstancePaths ClassName=:t", "PullInstancePaths", "abc", "INSTANCEPATH"},
      {"OpenAssociatorInstances InstanceName=@T.Id=\"a\" AssocClass=:Link Role=From",
       "PullInstancesWithPath", "cb", "VALUE.INSTANCEWITHPATH"},
      {"OpenAssociatorInstancePaths InstanceName=@T.Id=\"a\" ResultClass=:T ResultRole=To",
       "PullInstancePaths", "cb", "INSTANCEPATH"},
      {"OpenReferenceInstances InstanceName=@T.Id=\"a\" ResultClass=:Link", "PullInstancesWithPath",
       "aa", "VALUE.INSTANCEWITHPATH"},
      {"OpenReferenceInstancePaths InstanceName=@T.Id=\"a\" Role=From", "PullInstancePaths", "aa",
       "INSTANCEPATH"},
      {"OpenQueryInstances FilterQueryLanguage=WQL FilterQuery=SELECT_Id_FROM_T", "PullInstances",
       "abc", "INSTANCE"},
  };
  for (const auto& row : rows) {
    const std::string open = row.open;
    const std::string next = std::string(row.pull) + " EnumerationContext=$ MaxObjectCount=";
    const std::string all = row.all;
    EXPECT_EQ(pull(open + " MaxObjectCount=0x10"), all + '.') << open;
    EXPECT_EQ(pull.GetForm(), row.form);
    EXPECT_EQ(pull(open), "+") << open;
    EXPECT_EQ(pull(next + '0'), "+") << open;
    EXPECT_EQ(pull(next + '1'), all.substr(0, 1) + '+') << open;
    EXPECT_EQ(pull(next + "4294967295"), all.substr(1) + '.') << open;
    EXPECT_EQ(pull.GetForm(), row.form);
    EXPECT_EQ(pull(next + '1'), "21") << open;
    EXPECT_EQ(pull(open + " MaxObjectCount=1"), all.substr(0, 1) + '+') << open;
    EXPECT_EQ(pull("CloseEnumeration EnumerationContext=$"), "closed");
    EXPECT_EQ(pull("CloseEnumeration EnumerationContext=$"), "21");
  }
}

TEST(Pull, WhatIsNotOfferedOrWrongHasItsStatus) {
  const struct {
    const char* call;
    const char* status;
  } rows[] = {
      {"OpenEnumerateInstances ClassName=:X", "5"},
      {"OpenEnumerateInstances", "4"},
      {"OpenEnumerateInstances ClassName=:T FilterQueryLanguage=DMTF:FQL FilterQuery=N=1", "25"},
      {"OpenEnumerateInstances ClassName=:T ContinueOnError=TRUE", "26"},
      {"OpenEnumerateInstances ClassName=:T ContinueOnError=FALSE OperationTimeout=600", "+"},
      {"OpenEnumerateInstances ClassName=:T OperationTimeout=0", "22"},
      {"OpenEnumerateInstances ClassName=:T OperationTimeout=601", "22"},
      {"OpenEnumerateInstances ClassName=:T MaxObjectCount=-1", "4"},
      {"OpenEnumerateInstances ClassName=:T MaxObjectCount=+9", "abc."},
      {"OpenAssociatorInstances InstanceName=@T.Id=\"z\"", "6"},
      {"OpenReferenceInstancePaths InstanceName=@T.Id=\"z\"", "6"},
      {"OpenReferenceInstances InstanceName=@T.Id=\"b\" MaxObjectCount=1 Role=From", "."},
      {"OpenQueryInstances FilterQueryLanguage=X FilterQuery=SELECT_*_FROM_T", "14"},
      {"OpenQueryInstances FilterQueryLanguage=WQL FilterQuery=SELECT", "15"},
      {"PullInstancesWithPath EnumerationContext=nothing MaxObjectCount=1", "21"},
      {"PullInstancesWithPath EnumerationContext=$", "4"},
      {"PullInstancePaths EnumerationContext=$ MaxObjectCount=1", "21"},
      {"root/interop:PullInstancesWithPath EnumerationContext=$ MaxObjectCount=1", "21"},
      {"PullInstancesWithPath EnumerationContext=$ MaxObjectCount=1", "a+"},
  };
  TPuller pull;
  for (const auto& row : rows) EXPECT_EQ(pull(row.call), row.status) << row.call;
}

TEST(Pull, EnumerationsAreFewAndEndWithTheirTime) {
  TWbemLimits limits;
  limits.openEnumerations = 2;
  limits.instancesInPiece = 2;
  TPuller few(limits);
  const std::string open = "OpenEnumerateInstances ClassName=:T MaxObjectCount=";
  EXPECT_EQ(few(open + '1'), "a+");
  EXPECT_EQ(few(open + '1'), "a+");
  EXPECT_EQ(few(open + '1'), "27");
  EXPECT_EQ(few(open.substr(0, open.find(':')) + ":S MaxObjectCount=3"), "c.");
  EXPECT_EQ(few("CloseEnumeration EnumerationContext=$"), "closed");
  EXPECT_EQ(few(open + '9'), "ab+");

  std::chrono::steady_clock::time_point time;
  limits.openEnumerations = 1;
  limits.now = [&time] { return time; };
  TPuller slow(limits);
  const std::string pull = "PullInstancesWithPath EnumerationContext=$ MaxObjectCount=";
  const struct {
    int wait;
    std::string call;
    const char* answer;
  } rows[] = {
      {0, open + '1', "a+"},
      {59, pull + '0', "+"},
      {59, pull + '9', "bc."},
      {0, open + '1', "a+"},
      {60, pull + '1', "21"},
      {0, open + "1 OperationTimeout=600", "a+"},
      {599, open + '1', "27"},
      {1, open + "1 OperationTimeout=1", "a+"},
      {1, "CloseEnumeration EnumerationContext=$", "21"},
  };
  for (const auto& row : rows) {
    time += std::chrono::seconds(row.wait);
    EXPECT_EQ(slow(row.call), row.answer) << row.wait << " s, then " << row.call;
  }
}

TEST(Pull, WhatLeavesMeanwhileIsStillGiven) {
  TPuller pull;
  EXPECT_EQ(pull("OpenEnumerateInstances ClassName=:T MaxObjectCount=1"), "a+");
  pull.GetNamespace().ClearInstances();
  EXPECT_EQ(pull("PullInstancesWithPath EnumerationContext=$ MaxObjectCount=9"), "bc.");
  EXPECT_EQ(pull("OpenEnumerateInstances ClassName=:T"), ".");
}

TEST(Pull, TheClassOfAQueryComesWhereItIsAskedFor) {
  TSampleService service(kPullMof);
  const std::string call =
      "OpenQueryInstances FilterQueryLanguage=WQL FilterQuery=SELECT_N_FROM_T "
      "ReturnQueryResultClass=";
  const auto ask = [&](const char* flag) {
    return Outline(service.Ask(TClientCall::Read(call + flag).ByPython()).last_child());
  };
  EXPECT_EQ(ask("TRUE"), "PARAMVALUE QueryResultClass [CLASS T [PROPERTY N]]");
  EXPECT_EQ(ask("FALSE").rfind("PARAMVALUE EndOfSequence", 0), 0U);
}

}  // namespace
}  // namespace NZELVYR20
