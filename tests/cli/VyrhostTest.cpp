#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <iomanip>
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

std::string ComponentPath(const std::string& className, const std::string& group,
                          const std::string& part) {
  std::ostringstream path;
  path << className << ".GroupComponent=" << std::quoted(group)
       << ",PartComponent=" << std::quoted(part);
  return path.str();
}

const char* const kThree = R"(
class MY_Thing { [Key] string Id; };
[Association] class MY_Three {
  [Key] MY_Thing ref Left; [Key] MY_Thing ref Middle; [Key] MY_Thing ref Right;
};
instance of MY_Thing as $a { Id = "a"; };
instance of MY_Thing as $b { Id = "b"; };
instance of MY_Thing as $c { Id = "c"; };
instance of MY_Three { Left = $a; Middle = $b; Right = $c; };
instance of MY_Three { Left = $c; Middle = $c; Right = $b; };
)";

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
    TArgumentList arguments;
    std::string named;
    std::string help{};  // after a wrong command line: whose help is pointed to
  } rows[] = {
      {{"associators", kBox, "--result-class", "CIM_Nope"}, "no class CIM_Nope\n"},
      {{"classes", "--tree", "CIM_Procesor"},
       "no class CIM_Procesor; did you mean CIM_Processor?\n"},
      {{"class", "porcessor"}, "did you mean CIM_Processor?\n"},
      {{"class", "2x"}, "2x"},
      {{"class", "a\nb\033\x85\u0085\u202E\u202C\x7F\u00E9\xE2"},
       R"(class a\nb\x1b\x85\xc2\x85\xe2\x80\xae\xe2\x80\xac\x7fé\xe2:)"},
      {{"show", "CIM_Procesor.A=1"}, "did you mean CIM_Processor?\n"},
      {{"show", "CIM_ProcessorCore.Foo=1"},
       "\"Foo\" (CIM_ProcessorCore has 1 key: string InstanceID)\n"},
      {{"show", "CIM_Chassis.TAG=\"Foo=\\\"\", Teg=x"}, "Tag); did you mean Tag?\n"},
      {{"show", "CIM_ProcessorCore.InstanceID=\"x\""}, "CIM_ProcessorCore.InstanceID=\"x\"\n"},
      {{"show", "CIM_OperatingSystem.csNAME=null,Name=\"Test\""},
       ": the path lacks 2 keys: string CSCreationClassName, string CreationClassName\n"},
      {{"associators", kBox, "--assoc-class", "CIM_System"}, "CIM_System is no association\n"},
      {{"references", kBox, "--role", "Name"}, "no association has a reference Name\n"},
      {{"references", kBox, "--role", "fixedMedia"},
       "reference fixedMedia; CIM_MediaPresent.FixedMedia (boolean) is none\n"},
      {{"associators", kBox, "--result-role", "antecedant"}, "did you mean Antecedent?\n"},
      {{"associators", kBox, "--assoc-class", "CIM_Component", "--role", "Dependent"},
       "association CIM_Component has no reference Dependent\n"},
      {{"--plugin", "/nowhere/x.so"}, "/nowhere/x.so"},
      {{"classes", "--plugin", textFile}, textFile},
      {{"--plugin", "libm.so.6"}, "libm.so.6: registers no namespace provider \"inmem\"\n"},
      {{"--root", "/nowhere"}, "/nowhere"},
      {{"frobnicate"}, "command frobnicate\n", "vyrhost"},
      {{"shwo"}, "command shwo; did you mean show?\n", "vyrhost"},
      {{"classes", "--tre=1"}, "--tre=1; did you mean --tree?\n", "vyrhost classes"},
      {{"classes", "--deep"}, "--deep\n", "vyrhost classes"},
      {{"show"}, "OBJECT-PATH", "vyrhost show"},
      {{"show", kBox, "--raw", "--json"}, "--json", "vyrhost show"},
      {{"show", kBox, "more"}, "more\n", "vyrhost show"},
      {{"--log-level", "loud"}, "loud", "vyrhost"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.arguments));
    const TOutcome outcome = Run(row.arguments);
    EXPECT_EQ(outcome.status, row.help.empty() ? 1 : 2);
    EXPECT_EQ(outcome.output, "");
    const std::size_t end = outcome.errors.find('\n') + 1;
    EXPECT_EQ(outcome.errors.rfind("vyrhost: error: ", 0), 0U) << outcome.errors;
    EXPECT_TRUE(Contains(outcome.errors.substr(0, end), row.named)) << outcome.errors;
    EXPECT_EQ(outcome.errors.substr(end),
              row.help.empty() ? "" : "Try '" + row.help + " --help'.\n");
  }
}

TEST_F(VyrhostTest, PathsAreListedOnePerLine) {
  const std::string three = vyrhost_.Write("three.mof", kThree);
  const struct {
    TArgumentList arguments;
    std::vector<std::string> paths;
  } rows[] = {
      {{"instances", "CIM_LogicalDevice"}, {kSocket, kPort}},
      {{"instances", "CIM_LogicalDevice", "--no-deep"}, {}},
      // Each once, though there are two associations to the operating system.
      {{"associators", kBox}, {kSystem, kPort, kSocket}},
      {{"associators", kSocket, "--assoc-class", "CIM_SystemComponent"}, {kBox}},
      {{"associators", kBox, "--result-class", "CIM_LogicalPort", "--result-role", "partcomponent"},
       {kPort}},
      {{"associators", kSocket, "--role", "groupcomponent"}, {kCore}},
      // The only end of this role is the computer's own.
      {{"associators", kBox, "--assoc-class", "CIM_SystemDevice", "--result-role",
        "GroupComponent"},
       {}},
      {{"associators", kSocket, "--role", "PartComponent", "--result-role", "GroupComponent"},
       {kBox}},
      {{"associators", "MY_Thing.Id=\"a\"", "--mof", three},
       {"MY_Thing.Id=\"b\"", "MY_Thing.Id=\"c\""}},
      // An association may lead back from one of its ends to another.
      {{"associators", "MY_Thing.Id=\"c\"", "--role", "Left", "--mof", three},
       {"MY_Thing.Id=\"c\"", "MY_Thing.Id=\"b\""}},
      {{"references", kSocket}, {kHoldsSocket, kHoldsCore}},
      {{"references", kSocket, "--role", "PartComponent"}, {kHoldsSocket}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.arguments));
    const TOutcome outcome = Run(row.arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(Lines(outcome.output), row.paths);
  }
}

TEST_F(VyrhostTest, EveryListedPathCanBeShown) {
  vyrhost_.Write("sys/class/net/odd \"name\"\\=,\\x41\n\x1f\x85\u0085\u200F/type", "1\n");
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
  vyrhost_.Write("proc/version", "not\033[31m one\tline\u009B\xE9\u2066\u2069\u00E9");
  const struct {
    TArgumentList arguments;
    std::vector<std::string> lines;
  } rows[] = {
      {{},
       {"CIM_ProcessorCore (1 instance)", "  " + kCore, "    InstanceID        socket0/core0",
        "CIM_SystemDevice (2 instances)", "  PartComponent   " + kSocket}},
      {{"show", "cim_processorcore.instanceid=\"socket0/core0\""},
       {"Class  CIM_ProcessorCore", "Path   " + kCore,
        "InstanceID          string    key           socket0/core0",
        "InstallDate         datetime  default,null"}},
      {{"show", kSystem}, {"OSType                   uint16                  LINUX"}},
      {{"show", "--raw", kSystem},
       {"OSType                   uint16                  36",
        R"(Description              string                  not\x1b[31m one\tline\xc2\x9b\xe9\xe2\x81\xa6\xe2\x81\xa9é)"}},
      {{"show", "--json", kSystem},
       {"      \"value\": 36,", "      \"text\": \"LINUX\"",
        R"(      "value": "not\u001b[31m one\tline\u009b\ufffd\u2066\u2069\u00e9",)"}},
      {{"classes", "CIM_Component"},
       {"CIM_Component          abstract, association", "CIM_SystemDevice       association"}},
      {{"classes", "cim_logicalport", "--tree"},
       {"CIM_LogicalPort (abstract)", "└── CIM_NetworkPort", "    └── CIM_EthernetPort"}},
      {{"class", "CIM_SystemDevice"},
       {"Class         CIM_SystemDevice (association)",
        "Superclasses  CIM_SystemComponent < CIM_Component", "Qualifiers", "  Association",
        "  GroupComponent  reference to CIM_System         CIM_SystemDevice", "      Key"}},
      {{"class", "CIM_OperatingSystem"},
       {"  RequestStateChange(...)  uint32  CIM_EnabledLogicalElement"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.arguments));
    const TOutcome outcome = Run(row.arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    for (const auto& line : row.lines) {
      EXPECT_TRUE(Contains("\n" + outcome.output, "\n" + line + "\n")) << line << outcome.output;
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

TEST_F(VyrhostTest, LooksForItsPartsBesideItselfAndNotInTheCurrentFolder) {
  const auto beside = std::filesystem::path(VYRHOST_PATH).parent_path() / "libinmem.nsp.so";
  ASSERT_TRUE(std::filesystem::equivalent(beside, INMEM_PLUGIN_PATH));
  const TOutcome here = Run({"classes"});
  const auto earlier = std::filesystem::current_path();
  for (const char* library : {"libgcc_s.so.1", "libvyrcore.so.1"}) vyrhost_.Write(library, "no");
  std::filesystem::current_path(vyrhost_.GetRoot());
  EXPECT_EQ(vyrhost_.Run({"classes"}).output, here.output);
  std::filesystem::current_path(earlier);
}

TEST_F(VyrhostTest, DrawsChainsThatAreLongerThanTheStack) {
  std::string chain = "class MY_0 { [Key] string Id; };\n";
  for (int i = 0; i < 3000; ++i) {
    chain += "class MY_" + std::to_string(i + 1) + " : MY_" + std::to_string(i) + " {};\n";
  }
  const std::string file = vyrhost_.Write("chain.mof", chain);
  rlimit earlier{};
  getrlimit(RLIMIT_STACK, &earlier);
  const rlimit small{rlim_t{256} * 1024, earlier.rlim_max};
  setrlimit(RLIMIT_STACK, &small);
  const auto lines = Lines(Run({"classes", "MY_0", "--tree", "--mof", file}).output);
  setrlimit(RLIMIT_STACK, &earlier);
  ASSERT_EQ(lines.size(), 3001U);
  EXPECT_EQ(lines[2], "    └── MY_2");
  EXPECT_EQ(lines[3000], "… " + std::string(128, ' ') + "└── MY_3000");
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
