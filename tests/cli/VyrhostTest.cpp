#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "Cases.h"
#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

std::string DevicePath(const std::string& className, const std::string& device) {
  return className + ".CreationClassName=\"" + className + "\",DeviceID=\"" + device +
         "\",SystemCreationClassName=\"CIM_ComputerSystem\",SystemName=\"box\"";
}

struct VyrhostTest : testing::Test, TVyrhost {};

TEST_F(VyrhostTest, Commands) {
  Write("text.so", std::string(1000, 'x'));
  Write("proc/version", "not\033[31m one\tline\u009B\xE9\u2066\u2069\u00E9");
  Write("proc/cpuinfo", "processor\t: 0\nmodel name\t: Test CPU\ncpu MHz : 2600\n");
  Write("sys/bus/pci/devices/0000:00:1f.0/vendor", "0x1af4");
  const TWords words = {
      {"$root", GetRoot()},
      {"$odd", "a\nb\033\x85\u0085\u202E\u202C\x7F\u00E9\xE2"},
      {"$core", "CIM_ProcessorCore.InstanceID=\"socket0/core0\""},
      {"$socket", DevicePath("CIM_Processor", "socket0")},
      {"$port", DevicePath("CIM_EthernetPort", "eth0")},
      {"$pci", DevicePath("CIM_PCIDevice", "0000:00:1f.0")},
      {"$system",
       "CIM_OperatingSystem.CreationClassName=\"CIM_OperatingSystem\","
       "CSCreationClassName=\"CIM_ComputerSystem\",CSName=\"box\",Name=\"Test\""}};
  CheckCommands("commands.txt", words);
}

TEST_F(VyrhostTest, Drawings) {
  CheckCommands("draw.txt",
                {{"$root", GetRoot()}, {"$socket", DevicePath("CIM_Processor", "socket0")}});
}

TEST_F(VyrhostTest, PicturesAreMadeByGraphvizWhereItIsThere) {
  const TArgumentList graph = {"--empty", "--mof", DATA_DIR "/draw.mof", "graph"};
  const auto svg = [&graph, this] {
    TArgumentList words = graph;
    words.insert(words.end(), {"--format", "svg", "--quiet"});
    return Execute(words);
  };
  EXPECT_TRUE(Contains(svg().output, ">&quot;&lt;b&gt;&amp;amp;&lt;/b&gt;\\N\\n\\x1b#`|<"));

  // Boxes and arrows, as Graphviz counts them.
  const std::string counts = GetRoot() + "/counts";
  const std::string command = "\"" VYRHOST_PATH "\" --root " + GetRoot() +
                              " --quiet graph | dot -Tplain | cut -d\" \" -f1 | sort | uniq -c >" +
                              counts;
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_TRUE(Contains(ReadFile(counts), " 3 node\n")) << ReadFile(counts);

  const std::string earlier = getenv("PATH");
  const std::string folder = GetRoot();
  setenv("PATH", folder.c_str(), 1);
  EXPECT_EQ(svg().errors,
            "vyrhost: error: dot: no such program; it is part of the package graphviz\n");
  const std::string fake = Write("dot", "#!/bin/sh\necho 'Error: no' >&2\nexit 3\n");
  std::filesystem::permissions(fake, std::filesystem::perms::owner_all);
  EXPECT_EQ(svg().errors, "vyrhost: error: dot: Error: no\n");
  setenv("PATH", earlier.c_str(), 1);
}

TEST_F(VyrhostTest, TheFirstPageFoldsAndSaysOnceWhatCouldNotBeRead) {
  for (int i = 0; i < 12; ++i) {
    Write("sys/block/sd" + std::to_string(i) + "/size", "2048\n");
    Write("sys/class/net/eth" + std::to_string(i) + "/type", "1\n");
  }
  const TOutcome page = Execute({});
  EXPECT_EQ(page.errors, "");
  EXPECT_LE(Lines(page.output).size(), 30U);
  for (const char* line :
       {"├── 12 disks\n│   ├── sd0  1.0 MiB", "│   ├── sd9  1.0 MiB", "│   └── … and 2 more\n",
        "    └── … and 8 more\n", " things could not be read, such as:\n  "}) {
    EXPECT_TRUE(Contains(page.output, line)) << line << page.output;
  }
}

TEST_F(VyrhostTest, EveryListedPathCanBeShown) {
  Write("sys/class/net/odd \"name\"\\=,\\x41\n\x1f\x85\u0085\u200F/type", "1\n");
  std::vector<std::string> paths;
  for (const char* top : {"CIM_ManagedElement", "CIM_Component", "CIM_Dependency"}) {
    for (const auto& path : Lines(Execute({"instances", top}).output)) paths.push_back(path);
  }
  EXPECT_GE(paths.size(), 8U);
  for (const auto& path : paths) {
    const TOutcome outcome = Execute({"show", path});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(Contains(outcome.output, "\nPath   " + path + "\n")) << outcome.output;
  }
  for (const auto& path : Lines(Execute({"instances", "CIM_LogicalPort", "--short"}).output)) {
    EXPECT_EQ(Execute({"show", path}).status, 0) << path;
  }
}

TEST_F(VyrhostTest, NotesGoToStandardErrorUnlessQuiet) {
  const std::string note = "vyrhost: note: block devices: /sys/block: No such file or directory\n";
  const TOutcome loud = Execute({"instances", "CIM_System"});
  EXPECT_EQ(loud.status, 0);
  EXPECT_EQ(loud.output, kBox + "\n");
  EXPECT_TRUE(Contains(loud.errors, note)) << loud.errors;
  const TOutcome quiet = Execute({"instances", "CIM_System", "--quiet"});
  EXPECT_EQ(quiet.output, loud.output);
  EXPECT_EQ(quiet.errors, "");
}

TEST_F(VyrhostTest, LooksForItsPartsBesideItselfAndNotInTheCurrentFolder) {
  const auto beside = std::filesystem::path(VYRHOST_PATH).parent_path() / "libinmem.nsp.so";
  ASSERT_TRUE(std::filesystem::equivalent(beside, INMEM_PLUGIN_PATH));
  const TOutcome here = Execute({"classes"});
  const auto earlier = std::filesystem::current_path();
  for (const char* library : {"libgcc_s.so.1", "libvyrcore.so.1"}) Write(library, "no");
  std::filesystem::current_path(GetRoot());
  EXPECT_EQ(Execute({"classes"}).output, here.output);
  std::filesystem::current_path(earlier);
}

TEST_F(VyrhostTest, DrawsChainsThatAreLongerThanTheStack) {
  std::string chain = "class MY_0 { [Key] string Id; };\n";
  for (int i = 0; i < 3000; ++i) {
    chain += "class MY_" + std::to_string(i + 1) + " : MY_" + std::to_string(i) + " {};\n";
  }
  chain += "[Association] class MY_On { [Key] MY_0 ref Antecedent; [Key] MY_0 ref Dependent; };\n";
  for (int i = 0; i <= 3000; ++i) {
    const std::string number = std::to_string(i);
    chain += "instance of MY_0 as $i" + number;
    chain += " { Id = \"" + number + "\"; };\n";
    if (i == 0) continue;
    chain += "instance of MY_On { Antecedent = $i" + std::to_string(i - 1);
    chain += "; Dependent = $i" + number + "; };\n";
  }
  const std::string file = Write("chain.mof", chain);
  rlimit earlier{};
  getrlimit(RLIMIT_STACK, &earlier);
  const rlimit small{rlim_t{256} * 1024, earlier.rlim_max};
  setrlimit(RLIMIT_STACK, &small);
  const auto lines = Lines(Execute({"classes", "MY_0", "--tree", "--mof", file}).output);
  const auto instances = Lines(Execute({"tree", "MY_0.Id=\"0\"", "--mof", file}).output);
  setrlimit(RLIMIT_STACK, &earlier);
  ASSERT_EQ(lines.size(), 3001U);
  EXPECT_EQ(lines[2], "    └── MY_2");
  EXPECT_EQ(lines[3000], "… " + std::string(128, ' ') + "└── MY_3000");
  ASSERT_EQ(instances.size(), 3001U);
  EXPECT_EQ(instances[3000], "… " + std::string(128, ' ') + "└── MY_0:3000");
}

TEST_F(VyrhostTest, FailsWhenTheOutputCannotBeWritten) {
  const TOutcome full = Execute({"classes"}, ">/dev/full");
  EXPECT_EQ(full.status, 1);
  EXPECT_EQ(full.errors, "vyrhost: error: standard output: No space left on device\n");

  // A pipe that nobody reads, at a descriptor that every shell can name.
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe(ends), 0);
  dup2(ends[1], 9);
  close(ends[0]);
  close(ends[1]);
  const TOutcome broken = Execute({"classes"}, ">&9");
  close(9);
  EXPECT_EQ(broken.status, 1);
  EXPECT_EQ(broken.errors, "");
}

}  // namespace
}  // namespace NZELVYR20
