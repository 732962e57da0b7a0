#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

const std::string kBox = "CIM_ComputerSystem.CreationClassName=\"CIM_ComputerSystem\",Name=\"box\"";
const std::string kCore = "CIM_ProcessorCore.InstanceID=\"socket0/core0\"";

std::string DevicePath(const std::string& className, const std::string& device) {
  return className + ".CreationClassName=\"" + className + "\",DeviceID=\"" + device +
         "\",SystemCreationClassName=\"CIM_ComputerSystem\",SystemName=\"box\"";
}

const std::string kSocket = DevicePath("CIM_Processor", "socket0");
const std::string kSystem =
    "CIM_OperatingSystem.CreationClassName=\"CIM_OperatingSystem\","
    "CSCreationClassName=\"CIM_ComputerSystem\",CSName=\"box\",Name=\"Test\"";
const std::string kPort = DevicePath("CIM_EthernetPort", "eth0");

std::string Quoted(const std::string& text) {
  std::string quoted;
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return '"' + quoted + '"';
}

std::string ComponentPath(const std::string& className, const std::string& group,
                          const std::string& part) {
  return className + ".GroupComponent=" + Quoted(group) + ",PartComponent=" + Quoted(part);
}

const std::string kHoldsPort = ComponentPath("CIM_SystemDevice", kBox, kPort);
const std::string kHoldsSocket = ComponentPath("CIM_SystemDevice", kBox, kSocket);
const std::string kHoldsCore = ComponentPath("CIM_ConcreteComponent", kSocket, kCore);

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

class VyrhostTest : public ::testing::Test {
 protected:
  TOutcome Run(TArgumentList arguments, const std::string& redirection = "") const {
    arguments.insert(arguments.begin(),
                     {"--root", vyrhost_.GetRoot(), "--plugin", INMEM_PLUGIN_PATH});
    return vyrhost_.Run(arguments, redirection);
  }

  TVyrhost vyrhost_;
};

TEST_F(VyrhostTest, FailuresAreOneLineThatNamesTheThing) {
  const std::string textFile = vyrhost_.Write("text.so", std::string(1000, 'x'));
  const struct {
    const char* description;
    TArgumentList arguments;
    std::vector<std::string> named;
  } rows[] = {
      {"unknown class", {"instances", "CIM_Nope"}, {"CIM_Nope"}},
      {"unknown class in the tree", {"classes", "--tree", "CIM_Nope"}, {"CIM_Nope"}},
      {"class name that is none", {"class", "2x"}, {"2x"}},
      {"empty class name", {"class", ""}, {"class"}},
      {"line break in a name", {"class", "a\nb"}, {"a\\nb"}},
      {"path without class", {"show", ".A=1"}, {".A=1", "column 1:"}},
      {"unknown key", {"show", "CIM_ProcessorCore.Foo=\"x\""}, {"Foo", "column 19:"}},
      {"quotes that do not end", {"show", "CIM_ProcessorCore.InstanceID=\"x"}, {"column 30:"}},
      {"unknown instance", {"show", "CIM_ProcessorCore.InstanceID=\"x\""}, {"InstanceID=\"x\""}},
      {"class in place of a path", {"show", "CIM_ProcessorCore"}, {"CIM_ProcessorCore", "keys"}},
      {"associators of nothing", {"associators", DevicePath("CIM_Processor", "no")}, {"\"no\""}},
      {"unknown result class", {"associators", kBox, "--result-class", "CIM_Nope"}, {"CIM_Nope"}},
      {"unknown association", {"associators", kBox, "--assoc-class", "CIM_Nope"}, {"CIM_Nope"}},
      {"role that is no name", {"references", kBox, "--role", "2x"}, {"2x"}},
      {"no such plug-in", {"--plugin", "/nowhere/x.so"}, {"/nowhere/x.so"}},
      {"plug-in that is a text", {"classes", "--plugin", textFile}, {textFile}},
      {"library without provider", {"--plugin", "libm.so.6"}, {"libm.so.6", "inmem"}},
      {"no such root", {"--root", "/nowhere"}, {"/nowhere"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TOutcome outcome = Run(row.arguments);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    ASSERT_EQ(Lines(outcome.errors).size(), 1U) << outcome.errors;
    EXPECT_EQ(outcome.errors.rfind("vyrhost: error: ", 0), 0U) << outcome.errors;
    for (const auto& name : row.named)
      EXPECT_TRUE(Contains(outcome.errors, name)) << outcome.errors;
  }
}

TEST_F(VyrhostTest, WrongUsageNamesTheArgumentAndPointsToTheHelp) {
  const struct {
    const char* description;
    TArgumentList arguments;
    const char* named;
    const char* help;
  } rows[] = {
      {"unknown command", {"frobnicate"}, "command frobnicate", "vyrhost --help"},
      {"option of another command", {"classes", "--deep"}, "--deep", "vyrhost classes --help"},
      {"missing path", {"show"}, "OBJECT-PATH", "vyrhost show --help"},
      {"two forms", {"show", kBox, "--raw", "--json"}, "--json", "vyrhost show --help"},
      {"one path too many", {"show", kBox, "more"}, "more", "vyrhost show --help"},
      {"option without value", {"--plugin"}, "--plugin", "vyrhost --help"},
      {"level that is no number", {"--log-level", "loud"}, "loud", "vyrhost --help"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TOutcome outcome = vyrhost_.Run(row.arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    const std::vector<std::string> lines = Lines(outcome.errors);
    ASSERT_EQ(lines.size(), 2U) << outcome.errors;
    EXPECT_TRUE(Contains(lines[0], row.named)) << lines[0];
    EXPECT_TRUE(Contains(lines[1], row.help)) << lines[1];
  }
}

TEST_F(VyrhostTest, PathsAreListedOnePerLine) {
  const struct {
    const char* description;
    TArgumentList arguments;
    std::vector<std::string> paths;
  } rows[] = {
      {"a class and its subclasses", {"instances", "CIM_LogicalDevice"}, {kSocket, kPort}},
      {"without subclasses", {"instances", "CIM_LogicalDevice", "--no-deep"}, {}},
      {"each once, though there are two associations to the operating system",
       {"associators", kBox},
       {kSystem, kPort, kSocket}},
      {"through an association",
       {"associators", kSocket, "--assoc-class", "CIM_SystemComponent"},
       {kBox}},
      {"at a role of the association",
       {"associators", kBox, "--result-class", "CIM_LogicalDevice", "--result-role",
        "partcomponent"},
       {kPort, kSocket}},
      {"associations", {"references", kSocket}, {kHoldsSocket, kHoldsCore}},
      {"associations by role", {"references", kSocket, "--role", "PartComponent"}, {kHoldsSocket}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TOutcome outcome = Run(row.arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(Lines(outcome.output), row.paths);
  }
}

TEST_F(VyrhostTest, EveryListedPathCanBeShown) {
  vyrhost_.Write("sys/class/net/odd \"name\"\\=,/type", "1\n");
  std::vector<std::string> paths;
  for (const char* top : {"CIM_ManagedElement", "CIM_Component", "CIM_Dependency"}) {
    for (const auto& path : Lines(Run({"instances", top}).output)) paths.push_back(path);
  }
  EXPECT_GE(paths.size(), 8U);
  for (const auto& path : paths) {
    const TOutcome outcome = Run({"show", path});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(Contains(outcome.output, "\nPath   " + path + "\n")) << outcome.output;
  }
}

TEST_F(VyrhostTest, OutputHoldsTheseLines) {
  vyrhost_.Write("proc/version", "not\033[31m one\tline");
  const struct {
    const char* description;
    TArgumentList arguments;
    std::vector<std::string> lines;
  } rows[] = {
      {"overview",
       {},
       {"CIM_ProcessorCore (1 instance)", "  " + kCore, "    InstanceID        socket0/core0",
        "CIM_SystemDevice (2 instances)", "  PartComponent   " + kSocket}},
      {"one instance",
       {"show", "cim_processorcore.instanceid=\"socket0/core0\""},
       {"Class  CIM_ProcessorCore", "Path   " + kCore,
        "InstanceID          string    key           socket0/core0",
        "InstallDate         datetime  default,null"}},
      {"values with their texts and units",
       {"show", kSystem},
       {"OSType                   uint16                  LINUX"}},
      {"values as they are stored",
       {"show", "--raw", kSystem},
       {"OSType                   uint16                  36"}},
      {"values for programs",
       {"show", "--json", kSystem},
       {"      \"value\": 36,", "      \"text\": \"LINUX\"",
        "      \"value\": \"not\\u001b[31m one\\tline\","}},
      {"list of classes",
       {"classes", "CIM_Component"},
       {"CIM_Component          abstract, association", "CIM_SystemDevice       association"}},
      {"tree of classes",
       {"classes", "cim_logicalport", "--tree"},
       {"CIM_LogicalPort (abstract)", "└── CIM_NetworkPort", "    └── CIM_EthernetPort"}},
      {"class",
       {"class", "CIM_SystemDevice"},
       {"Class         CIM_SystemDevice (association)",
        "Superclasses  CIM_SystemComponent < CIM_Component", "Qualifiers", "  Association",
        "  GroupComponent  reference to CIM_System         CIM_SystemDevice", "      Key"}},
      {"inherited method",
       {"class", "CIM_OperatingSystem"},
       {"  RequestStateChange(...)  uint32  CIM_EnabledLogicalElement"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TOutcome outcome = Run(row.arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    const std::vector<std::string> lines = Lines(outcome.output);
    for (const auto& line : row.lines) {
      EXPECT_GT(std::count(lines.begin(), lines.end(), line), 0) << "no line: " << line << "\nin:\n"
                                                                 << outcome.output;
    }
    EXPECT_FALSE(Contains(outcome.output, "\033"));
    EXPECT_FALSE(Contains(outcome.output, " \n"));
  }
}

TEST_F(VyrhostTest, NotesGoToStandardErrorUnlessQuiet) {
  const std::string note = "vyrhost: note: block devices: /sys/block: No such file or directory\n";
  const TOutcome loud = Run({"instances", "CIM_System"});
  EXPECT_EQ(loud.status, 0);
  EXPECT_EQ(loud.output, kBox + "\n");
  EXPECT_TRUE(Contains(loud.errors, note)) << loud.errors;
  const TOutcome quiet = Run({"instances", "CIM_System", "--quiet"});
  EXPECT_EQ(quiet.output, loud.output);
  EXPECT_EQ(quiet.errors, "");
}

TEST_F(VyrhostTest, HelpNeedsNoPlugin) {
  const TOutcome outcome = vyrhost_.Run({"associators", "--help", "--plugin", "/nowhere"});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_TRUE(Contains(outcome.output, "--result-class CLASS")) << outcome.output;
  EXPECT_TRUE(Contains(vyrhost_.Run({"--version"}).output, "vyrhost "));
}

TEST_F(VyrhostTest, LooksForThePluginBesideItself) {
  const auto beside = std::filesystem::path(VYRHOST_PATH).parent_path() / "libinmem.nsp.so";
  ASSERT_TRUE(std::filesystem::equivalent(beside, INMEM_PLUGIN_PATH));
  EXPECT_EQ(vyrhost_.Run({"classes"}).output, Run({"classes"}).output);
}

TEST_F(VyrhostTest, FailsWhenTheOutputCannotBeWritten) {
  const TOutcome full = Run({"classes"}, ">/dev/full");
  EXPECT_EQ(full.status, 1);
  EXPECT_EQ(full.errors, "vyrhost: error: standard output: No space left on device\n");

  // A pipe that nobody reads, at a descriptor that every shell can name.
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe(ends), 0);
  dup2(ends[1], 9);
  close(ends[0]);
  close(ends[1]);
  const TOutcome broken = Run({"classes"}, ">&9");
  close(9);
  EXPECT_EQ(broken.status, 1);
  EXPECT_EQ(broken.errors, "");
}

}  // namespace
}  // namespace NZELVYR20
