#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

const char* const kRack = R"(
class MY_Rack : CIM_PhysicalFrame { uint16 Slots; };
[Association] class MY_Holds { [Key] MY_Rack ref Rack; [Key] CIM_ComputerSystem ref Computer; };
instance of MY_Rack as $rack { CreationClassName = "MY_Rack"; Tag = "r1"; Slots = 42; };
instance of MY_Holds {
  Rack = $rack;
  Computer = "CIM_ComputerSystem.CreationClassName=\"CIM_ComputerSystem\",Name=\"box\"";
};
)";
const char* const kBox = R"(CIM_ComputerSystem.CreationClassName="CIM_ComputerSystem",Name="box")";
const char* const kRackPath = "MY_Rack.CreationClassName=\"MY_Rack\",Tag=\"r1\"\n";
const char* const kOneBad =
    "Qualifier Key : boolean = false, Scope(property);\nclass MY_Bad {\n  nothing\tat all;\n};\n"
    "class MY_Good { [Key] string Id; };\n";

const char* const kOdd =
    "class MY_Odd { [Key] string Id; };\n[Association] class MY_Of { [Key] MY_Odd ref Odd; };\n"
    "instance of MY_Of { Odd = \"MY_Odd.Id=\\\"\033[31m\u0085\\\"\"; };\n";

/// A text with "..." in front is a part of what is expected.
void Expect(const std::string& expected, const std::string& actual) {
  const bool isPart = expected.rfind("...", 0) == 0;
  EXPECT_EQ(actual,
            isPart && actual.find(expected.substr(3)) != std::string::npos ? actual : expected);
}

class VyrhostMof : public ::testing::Test {
 protected:
  TVyrhost vyrhost_;
  const std::string rack_ = vyrhost_.Write("mof/rack.mof", kRack);
  const std::string bad_ = vyrhost_.Write("bad.mof", kOneBad);
};

TEST_F(VyrhostMof, WhatIsLoadedIsThere) {
  const std::string folder = vyrhost_.GetRoot() + "/mof";
  const std::string place = "..." + bad_ + ":3:3: error: ";
  const struct {
    TArgumentList arguments;
    int status;
    std::string output;
    std::string errors;
  } rows[] = {
      {{"instances", "MY_Rack", "--mof", rack_}, 0, kRackPath, ""},
      {{"associators", kBox, "--assoc-class", "MY_Holds", "--mof", folder}, 0, kRackPath, ""},
      {{"classes", "CIM_PhysicalFrame", "--mof", rack_}, 0, "...MY_Rack", ""},
      {{"classes", "--empty", "--mof", bad_}, 1, "MY_Good\n", place},
      {{"classes", "MY_Good", "--mof", bad_}, 1, "MY_Good\n", "...  nothing\tat all;\n"},
      {{"classes", "--mof", bad_, "--strict"}, 1, "", "...\nvyrhost: error: --strict: stopped"},
      {{"classes", "MY_Rack", "--mof", "/no", "--mof", rack_}, 1, "MY_Rack\n", "...No such file"},
      {{"--empty", "--max-file-size", "5000"}, 2, "", "...--max-file-size"},
      {{"mof", "MY_Rack", "--mof", rack_}, 0, "...class MY_Rack : CIM_PhysicalFrame", ""},
      {{"mof", "--empty"}, 0, "", ""},
      {{"instances", "MY_Odd", "--empty", "--log-level", "0", "--mof", vyrhost_.Write("odd", kOdd)},
       1,
       "",
       "...vyr[0] Inmem: Reference MY_Odd.id=\"\\x1b[31m\\xc2\\x85\" doesn't"},
      {{"mof", "MY_Rack"}, 1, "", "vyrhost: error: no class MY_Rack\n"},
      {{"--help"}, 0, "...\nMOF options:\n  --mof PATH ", ""},
      {{"associators", "--help", "--plugin", "/nowhere"}, 0, "...--result-class CLASS", ""},
      {{"--version"}, 0, "...vyrhost ", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.arguments));
    TArgumentList arguments = row.arguments;
    arguments.insert(arguments.begin(), {"--root", vyrhost_.GetRoot(), "--quiet"});
    const TOutcome outcome = vyrhost_.Run(arguments);
    EXPECT_EQ(outcome.status, row.status);
    Expect(row.output, outcome.output);
    Expect(row.errors, outcome.errors);
  }
}

TEST_F(VyrhostMof, PipesGetNoProgressAndASummaryOnlyWhereSomethingIsWrong) {
  std::string many = kOneBad;
  for (int id = 0; id < 60000; ++id) {
    many += "instance of MY_Good { Id = \"" + std::to_string(id) + "\"; };\n";
  }
  const TOutcome lengthy = vyrhost_.Run({"--empty", "classes", "--mof", vyrhost_.Write("m", many)});
  EXPECT_EQ(lengthy.errors.find('\r'), std::string::npos);
  Expect("...\nMOF: 1 file", lengthy.errors);
  EXPECT_EQ(vyrhost_.Run({"--root", vyrhost_.GetRoot(), "classes", "--mof", rack_}).errors,
            vyrhost_.Run({"--root", vyrhost_.GetRoot()}).errors);
}

TEST_F(VyrhostMof, InstalledProgramsFindTheirParts) {
  namespace fs = std::filesystem;
  const fs::path from = fs::path(VYRHOST_PATH).parent_path();
  const fs::path to = vyrhost_.GetRoot() + "/usr";
  for (const char* folder : {"bin", "lib/vyr", "share/vyr"}) fs::create_directories(to / folder);
  for (const char* file : {"vyrhost", "libvyrcore.so.1"}) fs::copy(from / file, to / "bin" / file);
  fs::copy(INMEM_PLUGIN_PATH, to / "lib/vyr");
  fs::copy(from / "schema", to / "share/vyr/schema");
  const std::string program = (to / "bin/vyrhost").string();
  EXPECT_EQ(vyrhost_.Run({"classes"}, "", program).output, vyrhost_.Run({"classes"}).output);

  vyrhost_.Write("usr/share/vyr/schema/pci.mof", "class CIM_X");
  const TOutcome outcome = vyrhost_.Run({"classes"}, "", program);
  EXPECT_EQ(outcome.status, 1);
  Expect("...vyrhost: error: cannot load the schema " + (to / "share/vyr/schema/vyr.mof").string(),
         outcome.errors);
  Expect("...pci.mof:1:", outcome.errors);
}

}  // namespace
}  // namespace NZELVYR20
