#include <gtest/gtest.h>

#include <sys/statvfs.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "Cases.h"
#include "ICIMClass.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "THostNamespace.h"
#include "TMachineCollector.h"
#include "TSampleMachine.h"

namespace NZELVYR20 {
namespace {

using TTexts = std::vector<std::string>;

const char* const kSystem =
    "CIM_ComputerSystem.CreationClassName=\"CIM_ComputerSystem\",Name=\"box \\\"7\\\"\"";

const char* const kChassis = "CIM_Chassis.CreationClassName=\"CIM_Chassis\",Tag=\"chassis0\"";

std::string Device(const std::string& className, const std::string& id) {
  return className + ".CreationClassName=\"" + className + "\",DeviceID=\"" + id +
         "\",SystemCreationClassName=\"CIM_ComputerSystem\",SystemName=\"box \\\"7\\\"\"";
}

/// The names of what the associations of a class link with the instance.
std::set<std::string> ListEnds(ICIMInstance& instance, const std::string& association) {
  std::set<std::string> names;
  instance.EnumerateAssociatedInstances(
      [&names](const boost::shared_ptr<ICIMInstance>& end) {
        return names.insert(end->GetProperty("ElementName", {})->ToString()).second;
      },
      association, "CIM_ManagedElement", "", "", {});
  return names;
}

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
  const THostNamespace host_{tree_.GetRoot()};
};

TEST_F(MachineCollector, AddsAllThatThereIs) {
  const std::pair<const char*, std::size_t> rows[] = {
      {"CIM_Processor", 2},        {"CIM_ProcessorCore", 4},        {"CIM_Memory", 7},
      {"CIM_NetworkPort", 3},      {"CIM_EthernetPort", 2},         {"CIM_MediaAccessDevice", 3},
      {"CIM_LogicalDisk", 3},      {"CIM_DiskPartition", 2},        {"CIM_PCIDevice", 1},
      {"CIM_FileSystem", 6},       {"CIM_SystemDevice", 21},        {"CIM_InstalledOS", 1},
      {"CIM_HostedFileSystem", 6}, {"CIM_ConcreteComponent", 4},    {"CIM_ResidesOnExtent", 3},
      {"CIM_MediaPresent", 1},     {"CIM_AssociatedCacheMemory", 7}};
  for (const auto& [name, count] : rows) EXPECT_EQ(count, host_.ListPaths(name).size()) << name;
  EXPECT_EQ((TTexts{"/sys/class/dmi/id/product_serial", "/proc/cpuinfo", "statvfs of 1 mount(s)",
                    "statvfs of 5 mount(s)"}),
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

TEST_F(MachineCollector, FillsProperties) {
  TTexts paths;
  CheckCases("properties.txt", [&](const std::string& path) {
    paths.push_back(path);
    std::string shown = host_.ShowAll(path);
    shown.pop_back();
    std::replace(shown.begin(), shown.end(), '|', '\n');
    return shown;
  });
  std::set<std::string> unseen = ListSet(host_, host_.ListPaths("CIM_ManagedElement"));
  for (const std::string& seen : ListSet(host_, paths)) unseen.erase(seen);
  EXPECT_EQ(std::set<std::string>(), unseen) << "set, and in no row";
}

TEST_F(MachineCollector, LinksWhatBelongsTogether) {
  const struct {
    std::string path;
    const char* association;
    std::set<std::string> ends;
  } rows[] = {
      {kSystem, "CIM_RunningOS", {"Sample Linux 7"}},
      {kSystem, "CIM_ComputerSystemPackage", {"Box 3000"}},
      {Device("CIM_Processor", "socket1"),
       "CIM_AssociatedCacheMemory",
       {"cpu2/L1 Data", "cpu2/L3 Unified", "cpu3/L1 Data", "cpu3/L4 Trace"}},
      {Device("CIM_Processor", "socket0"),
       "CIM_ConcreteComponent",
       {"socket0/core0", "socket0/core1"}},
      {Device("CIM_DiskPartition", "sda1"), "CIM_ResidesOnExtent", {"/dev/disk/by-uuid/1234"}},
      {Device("CIM_LogicalDisk", "dm-0"), "CIM_ResidesOnExtent", {"/dev/mapper/vault"}},
      {Device("CIM_DiskPartition", "sda2"), "CIM_BasedOn", {"sda", "vault"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.ends, ListEnds(*host_.Find(row.path), row.association)) << row.association;
  }
}

TEST_F(MachineCollector, FillsAssociations) {
  EXPECT_EQ("FixedMedia=TRUE|", host_.ShowAll(host_.ListPaths("CIM_MediaPresent").at(0)));
  EXPECT_EQ("PrimaryOS=TRUE|", host_.ShowAll(host_.ListPaths("CIM_InstalledOS").at(0)));
  std::set<std::string> caches;
  for (const std::string& path : host_.ListPaths("CIM_AssociatedCacheMemory")) {
    caches.insert(host_.ShowAll(path));
  }
  EXPECT_EQ((std::set<std::string>{
                "Associativity=12-way Set Associative|CacheType=Data|Level=Primary|LineSize=64 "
                "Bytes|",
                "Associativity=Other|CacheType=Other|Level=Other|OtherAssociativityDescription="
                "11-way|OtherCacheTypeDescription=Trace|OtherLevelDescription=Level 4|",
                "Associativity=Unknown|CacheType=Unified|Level=Tertiary|"}),
            caches);
  std::set<std::string> extents;
  for (const std::string& path : host_.ListPaths("CIM_BasedOn")) {
    extents.insert(host_.Show(path, "Antecedent StartingAddress EndingAddress OrderIndex"));
  }
  const std::string disk = Device("CIM_LogicalDisk", "sda");
  EXPECT_EQ((std::set<std::string>{Device("CIM_DiskPartition", "sda2") + "|<null>|<null>|<null>|",
                                   Device("CIM_LogicalDisk", "dm-0") + "|<null>|<null>|<null>|",
                                   disk + "|256|767|1|", disk + "|<null>|<null>|2|"}),
            extents);
}

TEST_F(MachineCollector, CollectingAgainReplaces) {
  const TTexts paths = host_.ListPaths("CIM_ManagedElement");
  TMachineCollector(tree_.GetRoot()).Collect(host_.Get());
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
  EXPECT_EQ("Sample Board 4|", host.Show(kChassis, "Model"));
  EXPECT_NE("/sys/class/dmi/id", host.GetNoted().at(1));
  tree.WriteValues("/sys/class/dmi/id/", "product_serial=S1 product_version=V2");
  EXPECT_EQ("S1|V2|", THostNamespace(tree.GetRoot()).Show(kChassis, "SerialNumber Version"));
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

}  // namespace
}  // namespace NZELVYR20
