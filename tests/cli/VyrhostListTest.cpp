#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "Cases.h"
#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

const std::string kOdd = DATA_DIR "/odd_values.mof";

struct VyrhostList : testing::Test, TVyrhost {
  /// What another program makes of a text; empty where it fails.
  std::string Read(const std::string& text, const std::string& program) const {
    const std::string from = Write("from", text);
    const std::string to = Write("to", "");
    const std::string command = program + " <" + from + " >" + to;
    EXPECT_EQ(std::system(command.c_str()), 0) << program << '\n' << text;
    return ReadFile(to);
  }

  std::string ReadOdd(TArgumentList arguments, const std::string& mof = kOdd) const {
    arguments.insert(arguments.end(), {"--empty", "--mof", mof});
    const TOutcome outcome = Execute(arguments);
    EXPECT_EQ(outcome.errors, "");
    return outcome.output;
  }
};

TEST_F(VyrhostList, Commands) { CheckCommands("lists.txt", {{"$odd", kOdd}}); }

TEST_F(VyrhostList, EveryFormatIsReadBackByAProgramOfAnotherMake) {
  const std::string python = "python3 " DATA_DIR "/read_back.py ";
  for (const std::string format : {"json", "jsonl", "csv"}) {
    Read(ReadOdd({"instances", "MY_Odd", "--raw", "--format", format}), python + format);
    Read(ReadOdd({"--format", format}), python + format + (format == "csv" ? "-all all" : " all"));
  }
}

/// The loader makes the same of it, apart from the time.
TEST_F(VyrhostList, MofIsReadBackByTheLoader) {
  const std::string all = ReadOdd({"all", "--format", "mof"});
  const std::string odd = ReadFile(kOdd);
  const std::string again = Write("again.mof", odd.substr(0, odd.find("instance of")) + all);
  EXPECT_EQ(ReadOdd({"all", "--format", "csv"}, again), ReadOdd({"all", "--format", "csv"}));
  EXPECT_EQ(ReadOdd({"all", "--format", "mof"}, again), all);
}

TEST_F(VyrhostList, JsonLinesSayOfAMachineWhatJsonDoes) {
  const std::string lines = Execute({"--format", "jsonl"}).output;
  EXPECT_EQ(lines.rfind("{\"format\":1,\"machine\":\"box\",\"time\":\"20", 0), 0U) << lines;
  const std::string values =
      "(.properties | with_entries(select(.value.value != null)) | map_values(";
  EXPECT_EQ(
      Read(lines, "jq -c '{class, path, values, texts}'"),
      Read(Execute({"--format", "json"}).output, "jq -c '.[] | {class, path, values: " + values +
                                                     ".value)), texts: " + values + ".text))}'"));
  EXPECT_EQ(Read(lines, "jq -r 'select(.class == \"CIM_EthernetPort\").path'"),
            Execute({"instances", "CIM_EthernetPort"}).output);
}

}  // namespace
}  // namespace NZELVYR20
