#include <gtest/gtest.h>

#include <sys/statvfs.h>

#include <algorithm>
#include <boost/algorithm/string.hpp>
#include <cstdlib>
#include <set>
#include <sstream>

#include "Cases.h"
#include "ICIMClass.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "THostNamespace.h"
#include "TMachineCollector.h"
#include "TPrinter.h"
#include "TSampleMachine.h"

namespace NZELVYR20 {
namespace {

using TTexts = std::vector<std::string>;

const char* const kChassis = "CIM_Chassis.CreationClassName=\"CIM_Chassis\",Tag=\"chassis0\"";

/// Every property of every class has a description, and texts where it has a map of values.
void CheckClass(const boost::shared_ptr<ICIMClass>& cimClass) {
  SCOPED_TRACE(cimClass->GetName({}));
  EXPECT_TRUE(cimClass->GetQualifier("Description", {}));
  cimClass->EnumeratePropertyDecls(
      [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
        SCOPED_TRACE(declaration->GetName({}));
        bool found = false;
        EXPECT_TRUE(declaration->GetQualifier("Description", found, {}));
        const bool hasTexts = declaration->GetQualifier("Values", found, {}) != nullptr;
        EXPECT_EQ(hasTexts, declaration->GetQualifier("ValueMap", found, {}) != nullptr);
        return true;
      },
      {});
}

TEST(Schema, EveryClassIsDescribed) {
  const THostNamespace host("");
  host.Get()->GetClass("", {})->EnumerateSubClasses(
      [](const boost::shared_ptr<ICIMClass>& cimClass) {
        CheckClass(cimClass);
        return true;
      },
      true, {});
}

class MachineCollector : public testing::Test {
 protected:
  const TSampleMachine tree_;
  const THostNamespace host_{tree_.GetRoot(), {true, true}};
};

TEST_F(MachineCollector, NotesWhatItCannotRead) {
  EXPECT_EQ(
      (TTexts{"/sys/class/dmi/id/product_serial", "/proc/cpuinfo", "/sys/class/drm/card0-DP-2/edid",
              "statvfs of 1 mount(s)", "statvfs of 6 mount(s)"}),
      host_.GetNoted());
}

/// The names of what is set, with those of the classes.
std::set<std::string> ListSet(const THostNamespace& host, const TTexts& paths) {
  std::set<std::string> names;
  for (const std::string& path : paths) {
    std::istringstream properties(host.ShowAll(path));
    for (std::string property; std::getline(properties, property, '|');) {
      names.insert(path.substr(0, path.find('.')) + '.' + property.substr(0, property.find('=')));
    }
  }
  return names;
}

/// Whether a row of the document has both the class and the property.
bool IsDocumented(const std::string& name) {
  static const std::string kDocument = ReadFile(COLLECTED_DOCUMENT);
  const std::size_t dot = name.find('.');
  std::istringstream rows(kDocument);
  for (std::string row; std::getline(rows, row);) {
    TTexts cells;
    boost::split(cells, row, boost::is_any_of("|"));
    const auto has = [&cells](std::size_t cell, const std::string& word) {
      TTexts words;
      boost::split(words, cells[cell], boost::is_any_of(", "));
      return std::count(words.begin(), words.end(), word) > 0;
    };
    const bool isRow = cells.size() > 3;
    if (isRow && has(1, name.substr(0, dot)) && has(2, name.substr(dot + 1))) return true;
  }
  return false;
}

/// A case is an instance, with what it shows; an association, with what it links; or any other
/// class, with the paths of its instances.
TEST_F(MachineCollector, AddsAllThatThereIs) {
  TTexts shown;
  CheckCases("collected.txt", [&](const std::string& given) {
    if (given.find('.') != std::string::npos) {
      shown.push_back(given);
      return boost::replace_all_copy(host_.ShowAll(given), "|", "\n");
    }
    TTexts lines = host_.ListPaths(given);
    if (host_.Get()->GetClass(given, {})->IsAssociation({})) {
      for (std::string& line : lines) line = host_.ShowAll(line);
    }
    return boost::join(lines, "\n");
  });
  for (const std::string& name : ListSet(host_, shown)) {
    EXPECT_TRUE(IsDocumented(name)) << name << " is in no row of the document";
  }
  std::set<std::string> unseen = ListSet(host_, host_.ListPaths("CIM_ManagedElement"));
  for (const std::string& seen : ListSet(host_, shown)) unseen.erase(seen);
  EXPECT_EQ(std::set<std::string>(), unseen) << "set, and in no case";
}

/// With what is in the cases above, where everything that is set is seen.
TEST_F(MachineCollector, ShowsUnitsAndMeanings) {
  int shown = 0;
  for (const std::string& path : host_.ListPaths("CIM_ManagedElement")) {
    host_.Find(path)->EnumerateProperties(
        [&](const boost::shared_ptr<ICIMProperty>& property) {
          const auto declaration = property->GetDeclaration({});
          bool isFound = false;
          const bool isPlain = !declaration->GetQualifier("Values", isFound, {}) &&
                               !declaration->GetQualifier("Units", isFound, {});
          if (isPlain || property->GetValue({}).IsNull()) return true;
          const std::string text = TPrinter::PropertyText(*property);
          EXPECT_NE(text.find_first_not_of("{}, 0123456789"), std::string::npos)
              << path << ' ' << declaration->GetName({}) << ": " << text;
          ++shown;
          return true;
        },
        {});
  }
  EXPECT_GT(shown, 150);
}

/// The name of what a path leads to: its own key.
std::string GetKey(const std::string& path) {
  for (const std::string key : {",DeviceID=\"", ",Name=\""}) {
    const std::size_t at = path.find(key);
    if (at == std::string::npos) continue;
    const std::size_t begin = at + key.size();
    return path.substr(begin, path.find('"', begin) - begin);
  }
  return path;
}

TEST_F(MachineCollector, AFileSystemLeadsToItsController) {
  std::multimap<std::string, std::string> below;
  for (const char* name :
       {"CIM_ResidesOnExtent", "CIM_BasedOn", "CIM_MediaPresent", "CIM_ControlledBy"}) {
    for (const std::string& path : host_.ListPaths(name)) {
      const auto link = host_.Find(path);
      const auto get = [&link](const char* end) {
        const TCIMValue value = link->GetProperty(end, {})->GetValue({});
        return static_cast<TCIMReference>(value).ToString();
      };
      below.emplace(get("Dependent"), get("Antecedent"));
    }
  }
  TTexts names;
  std::string path;
  for (const auto& [upper, lower] : below) {
    if (GetKey(upper) == "/data") path = upper;
  }
  for (auto found = below.find(path); found != below.end(); found = below.find(path)) {
    path = found->second;
    names.push_back(path.substr(0, path.find('.')) + ' ' + GetKey(path));
  }
  EXPECT_EQ((TTexts{"CIM_LogicalDisk dm-2", "CIM_LogicalDisk dm-1", "CIM_LogicalDisk md1",
                    "CIM_DiskPartition sdc1", "CIM_LogicalDisk sdc", "CIM_DiskDrive sdc",
                    "CIM_PCIDevice 0000:3b:1f.6"}),
            names);
}

TEST_F(MachineCollector, CollectingAgainReplaces) {
  const TTexts paths = host_.ListPaths("CIM_ManagedElement");
  TMachineCollector(tree_.GetRoot(), {true, true}).Collect(host_.Get());
  EXPECT_EQ(paths, host_.ListPaths("CIM_ManagedElement"));
}

TEST(PoorMachine, NothingAtAll) {
  const TSampleTree tree;
  const THostNamespace host(tree.GetRoot() + "//");
  EXPECT_EQ(1U, host.ListPaths("CIM_ManagedElement").size());
  EXPECT_EQ(1U, host.ListPaths("CIM_ComputerSystem").size());
  EXPECT_EQ((TTexts{"/proc/sys/kernel/hostname", "/sys/class/dmi/id", "/etc/os-release",
                    "/proc/sys/kernel/osrelease", "/proc/cpuinfo", "/sys/class/net", "/sys/block",
                    "/proc/filesystems", "/proc/mounts"}),
            host.GetNoted());
}

TEST(PoorMachine, ClustersOfCores) {
  const TSampleTree tree;
  tree.Write("/proc/cpuinfo",
             "processor: 0\n\nprocessor: 1\n\nprocessor: 2\n\nFeatures: asimd aes\n");
  const std::string cores = "/sys/devices/system/cpu/cpu";
  const auto show = [&tree](const std::string& className) {
    const THostNamespace host(tree.GetRoot());
    TTexts shown;
    for (const std::string& path : host.ListPaths(className)) shown.push_back(host.ShowAll(path));
    return boost::join(shown, "; ");
  };
  tree.WriteValues(cores + "0/topology/", "cluster_cpus_list=0-1 cluster_id=7");
  tree.WriteValues(cores + "1/topology/", "cluster_cpus_list=0-1 cluster_id=7");
  EXPECT_EQ("", show("CIM_ConcreteCollection"));
  tree.WriteValues(cores + "2/topology/", "cluster_cpus_list=2 cluster_id=9");
  EXPECT_EQ(
      "Description=Cluster of the processors 0-1|ElementName=socket0/cluster7; "
      "Description=Cluster of the processors 2|ElementName=socket0/cluster9",
      show("CIM_ConcreteCollection"));
  EXPECT_EQ(
      "Collection=socket0/cluster7|Member=socket0/core0; "
      "Collection=socket0/cluster7|Member=socket0/core1; "
      "Collection=socket0/cluster9|Member=socket0/core2",
      show("CIM_MemberOfCollection"));
  EXPECT_NE(std::string::npos, show("CIM_Processor").find("={ASIMD AES}"));
  tree.WriteValues(cores + "1/topology/", "cluster_cpus_list=1 cluster_id=8");
  EXPECT_EQ("", show("CIM_ConcreteCollection"));
}

TEST(PoorMachine, OddTrees) {
  // A folder in the place of a file, a file in the place of a folder, data of another kind.
  for (const std::string path : {"/proc/cpuinfo/", "/sys/class/net", "/proc/cpuinfo"}) {
    const TSampleTree tree;
    tree.Write(path, "\x7f\x45\x4c\x46\x01\x02\n:::\n");
    const std::string note = path.substr(0, path.find_last_not_of('/') + 1);
    const TTexts noted = THostNamespace(tree.GetRoot()).GetNoted();
    EXPECT_EQ(1, std::count(noted.begin(), noted.end(), note)) << path;
  }
}

TEST(PoorMachine, AnIdentityFromTheDeviceTree) {
  const TSampleTree tree;
  tree.Write("/proc/device-tree/model", std::string("Sample Board 4\0", 15));
  const THostNamespace host(tree.GetRoot());
  EXPECT_EQ("ElementName=Sample Board 4|Model=Sample Board 4", host.ShowAll(kChassis));
  EXPECT_NE("/sys/class/dmi/id", host.GetNoted().at(1));
  tree.WriteValues("/sys/class/dmi/id/", "product_serial=S1 product_version=V2");
  EXPECT_EQ("SerialNumber=S1|Version=V2", THostNamespace(tree.GetRoot()).ShowAll(kChassis));
}

TEST(ThisMachine, IsCollected) {
  const THostNamespace host("/");
  EXPECT_EQ(1U, host.ListPaths("CIM_ComputerSystem").size());
  EXPECT_EQ(1U, host.ListPaths("CIM_RunningOS").size());
  for (const std::string& path : host.ListPaths("CIM_LocalFileSystem")) {
    struct statvfs64 status = {};
    const auto get = [&](const char* name) {
      const TCIMValue value = host.Find(path)->GetProperty(name, {})->GetValue({});
      return value.IsNull() ? 0 : std::stoull(value.ToString(10));
    };
    const std::string root = path.substr(path.find(",Name=\"") + 7);
    if (get("BlockSize") == 0 || statvfs64(root.substr(0, root.size() - 1).c_str(), &status) != 0) {
      continue;
    }
    EXPECT_EQ(status.f_frsize, get("BlockSize")) << path;
    EXPECT_EQ(status.f_blocks * status.f_frsize, get("FileSystemSize")) << path;
    EXPECT_EQ(status.f_namemax, get("MaxFileNameLength")) << path;
    // These two move while the test runs.
    EXPECT_NEAR(status.f_bavail * status.f_frsize, get("AvailableSpace"), 1 << 30) << path;
    EXPECT_NEAR(status.f_files - status.f_ffree, get("NumberOfFiles"), 1 << 20) << path;
  }
}

TEST(ThisMachine, IsTheSameWhenItWasSaved) {
  const TSampleTree tree;
  const std::string saved = tree.GetRoot() + "/saved";
  ASSERT_EQ(0, std::system((SAVE_MACHINE " --with-serials " + saved).c_str()));
  EXPECT_EQ(THostNamespace("/").ListPaths("CIM_ManagedElement"),
            THostNamespace(saved).ListPaths("CIM_ManagedElement"));
  EXPECT_NE(0, std::system((SAVE_MACHINE " " + saved + " 2>/dev/null").c_str()));
}

}  // namespace
}  // namespace NZELVYR20
