#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "Cases.h"
#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

struct VyrhostSql : testing::Test, TVyrhost {
  /// Asks the program; the statement comes from a file.
  TOutcome Ask(const std::string& statement, TArgumentList arguments = {}) const {
    const std::string file = Write("statement", statement);
    arguments.insert(arguments.begin(), {"--quiet", "sql", "-"});
    return Execute(arguments, "<" + file);
  }
  /// What sqlite3 answers from a database file.
  std::string AskFile(const std::string& file, const std::string& statement) const {
    const std::string input = Write("statement", statement);
    const std::string output = GetRoot() + "/answer";
    const std::string command =
        "sqlite3 -bail -header '" + file + "' <'" + input + "' >'" + output + "'";
    return std::system(command.c_str()) == 0 ? ReadFile(output) : "failed";
  }
};

TEST_F(VyrhostSql, SavedDatabasesAnswerTheSame) {
  const std::string file = GetRoot() + "/box.db";
  const TOutcome saved = Ask("SELECT 1", {"--save", file});
  EXPECT_EQ(saved.output + saved.errors, "1\n1\n");
  const std::string display = "display(path, 'EnabledState')";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"SELECT path FROM CIM_ManagedElement ORDER BY 1", ""},
      {"SELECT path FROM CIM_SystemDevice ORDER BY 1", ""},
      {"SELECT DeviceID FROM CIM_ComputerSystem s JOIN CIM_SystemDevice a ON a.GroupComponent = "
       "s.path JOIN CIM_LogicalDevice d ON d.path = a.PartComponent ORDER BY 1",
       ""},
      {"SELECT count(*) || json_group_array(Name) FROM CIM_NetworkPort WHERE class <> 'CIM_X'", ""},
      {"SELECT " + display + " FROM CIM_EthernetPort",
       "SELECT text AS \"" + display +
           "\" FROM CIM_EthernetPort e JOIN display$ t ON t.path = "
           "e.path AND property = 'enabledstate'"},
  };
  for (const auto& [live, kept] : cases) {
    const std::string answer = Ask(live).output;
    EXPECT_GE(Lines(answer).size(), 2U) << live;
    EXPECT_EQ(AskFile(file, kept.empty() ? live : kept), answer) << live;
  }
}

/// More subclasses than SQLite unites in one query.
TEST_F(VyrhostSql, SavesAClassOfManySubclasses) {
  std::string mof =
      "Qualifier Key : boolean = false, Scope(any);\nclass MY_A { [Key] string Id; };\n";
  for (int n = 1; n <= 1100; ++n) {
    const std::string name = "MY_A" + std::to_string(n);
    mof.append("class ").append(name).append(" : MY_A { };\n");
    mof.append("instance of ").append(name).append(" { Id = \"x\"; };\n");
  }
  const std::string file = GetRoot() + "/many.db";
  EXPECT_EQ(Execute({"--empty", "--mof", Write("many.mof", mof), "sql", "--save", file}).errors,
            "");
  EXPECT_EQ(AskFile(file, "SELECT count(DISTINCT path) AS n FROM MY_A WHERE Id = 'x'"),
            "n\n1100\n");
}

TEST_F(VyrhostSql, NothingButDatabasesIsReplaced) {
  const std::string file = Write("notes", "my notes\n");
  const TOutcome refused = Execute({"sql", "--save", file});
  EXPECT_EQ(refused.errors,
            "vyrhost: error: " + file + ": is there already, and is no database of SQLite\n");
  EXPECT_EQ(ReadFile(file), "my notes\n");
  Write("notes", "");
  EXPECT_EQ(Execute({"--quiet", "sql", "--save", file}).errors, "");
  EXPECT_EQ(Execute({"--quiet", "sql", "--save", file}).errors, "");
  EXPECT_EQ(AskFile(file, "PRAGMA integrity_check"), "integrity_check\nok\n");
  for (const auto& entry : std::filesystem::directory_iterator(GetRoot())) {
    EXPECT_FALSE(Contains(entry.path().string(), ".new")) << entry.path();
  }
  EXPECT_EQ(Execute({"sql", "--save", GetRoot() + "/none/x.db"}).status, 1);
  EXPECT_EQ(Execute({"sql"}).status, 2);
}

}  // namespace
}  // namespace NZELVYR20
