#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Cases.h"
#include "TVyrhost.h"

namespace NZELVYR20 {

const std::string kData = DATA_DIR;

struct VyrhostMof : testing::Test, TVyrhost {};

TEST_F(VyrhostMof, Commands) { CheckCommands("mof.txt"); }

TEST_F(VyrhostMof, PipesGetNoProgressAndASummaryOnlyWhereSomethingIsWrong) {
  std::string many = ReadData("bad.mof");
  for (int id = 0; id < 60000; ++id) {
    many += "instance of MY_Good { Id = \"" + std::to_string(id) + "\"; };\n";
  }
  const TOutcome lengthy = Execute({"--empty", "classes", "--mof", Write("m", many)});
  EXPECT_EQ(lengthy.errors.find('\r'), std::string::npos);
  EXPECT_TRUE(Contains(lengthy.errors, "\nMOF: 1 file")) << lengthy.errors;
  EXPECT_EQ(Execute({"classes", "--mof", kData + "/mof"}).errors, Execute({"all"}).errors);
}

TEST_F(VyrhostMof, InstalledProgramsFindTheirParts) {
  namespace fs = std::filesystem;
  const fs::path from = fs::path(VYRHOST_PATH).parent_path();
  const fs::path to = GetRoot() + "/usr";
  for (const char* folder : {"bin", "lib/vyr", "share/vyr"}) fs::create_directories(to / folder);
  for (const char* file : {"vyrhost", "libvyrcore.so.1"}) fs::copy(from / file, to / "bin" / file);
  fs::copy(INMEM_PLUGIN_PATH, to / "lib/vyr");
  fs::copy(from / "schema", to / "share/vyr/schema");
  const std::string program = (to / "bin/vyrhost").string();
  EXPECT_EQ(Execute({"classes"}, "", program).output, Execute({"classes"}).output);

  Write("usr/share/vyr/schema/pci.mof", "class CIM_X");
  const TOutcome outcome = Execute({"classes"}, "", program);
  EXPECT_EQ(outcome.status, 1);
  const std::string schema = (to / "share/vyr/schema/vyr.mof").string();
  for (const auto& part :
       {"vyrhost: error: cannot load the schema " + schema, std::string("pci.mof:1:")}) {
    EXPECT_TRUE(Contains(outcome.errors, part)) << outcome.errors;
  }
}

}  // namespace NZELVYR20
