#include <gtest/gtest.h>

#include <algorithm>
#include <set>

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

std::string Element(const std::string& className, const std::string& name) {
  return className + ".CreationClassName=\"" + className +
         "\",CSCreationClassName=\"CIM_ComputerSystem\",CSName=\"box \\\"7\\\"\",Name=\"" + name +
         '"';
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
      {"CIM_Processor", 2},        {"CIM_ProcessorCore", 4},        {"CIM_Memory", 6},
      {"CIM_NetworkPort", 3},      {"CIM_EthernetPort", 2},         {"CIM_DiskDrive", 2},
      {"CIM_LogicalDisk", 2},      {"CIM_DiskPartition", 2},        {"CIM_PCIDevice", 1},
      {"CIM_FileSystem", 5},       {"CIM_SystemDevice", 18},        {"CIM_InstalledOS", 1},
      {"CIM_HostedFileSystem", 5}, {"CIM_ConcreteComponent", 4},    {"CIM_ResidesOnExtent", 2},
      {"CIM_MediaPresent", 1},     {"CIM_AssociatedCacheMemory", 6}};
  for (const auto& [name, count] : rows) EXPECT_EQ(count, host_.ListPaths(name).size()) << name;
  EXPECT_EQ((TTexts{"/sys/class/dmi/id/product_serial", "statvfs of 1 mount(s)",
                    "statvfs of 4 mount(s)"}),
            host_.GetNoted());
}

TEST_F(MachineCollector, FillsProperties) {
  const struct {
    std::string path;
    const char* properties;
    const char* shown;
  } rows[] = {
      {kChassis, "Version ChassisPackageType", "<null>|Desktop|"},
      {Element("CIM_OperatingSystem", "Sample Linux 7"),
       "TotalVisibleMemorySize TotalVirtualMemorySize LocalDateTime NumberOfProcesses",
       "8 Gigabytes|10 Gigabytes|2023-11-14 22:14:50 +00:00|<null>|"},
      {Device("CIM_Processor", "socket0"), "MaxClockSpeed", "3400|"},
      {Device("CIM_Processor", "socket1"),
       "OtherFamilyDescription NumberOfEnabledCores MaxClockSpeed", "Sample CPU|2|<null>|"},
      {Device("CIM_Memory", "cpu2/L3 Unified"), "NumberOfBlocks", "16777216|"},
      {Device("CIM_EthernetPort", "eth0"), "Speed PermanentAddress OperationalStatus FullDuplex",
       "10 Gbps|02FC000A0B0C|{2}|TRUE|"},
      {Device("CIM_EthernetPort", "eth1"), "Speed PermanentAddress NetworkAddresses EnabledState",
       "Unknown|<null>|{02FC000A0B0D}|Enabled but Offline|"},
      {Device("CIM_NetworkPort", "lo"), "OtherLinkTechnology", "Loopback|"},
      {Device("CIM_PCIDevice", "0000:3b:1f.6"),
       "BusNumber DeviceNumber VendorID PCIDeviceID SubsystemVendorID RevisionID ClassCode",
       "59|31|1af4|41|<null>|a|Network|"},
      {Device("CIM_DiskDrive", "sda"), "ElementName DiskType MaxMediaSize",
       "Disk 9|Solid State Drive|4 Megabytes|"},
      {Device("CIM_DiskDrive", "sdb"), "Capabilities MaxMediaSize", "{3,4,7}|<null>|"},
      {Device("CIM_DiskPartition", "sda1"), "NumberOfBlocks Access", "512|Readable|"},
      {Element("CIM_LocalFileSystem", "/"), "ReadOnly", "TRUE|"},
      {Element("CIM_LocalFileSystem", "/my files"), "FileSystemSize", "<null>|"},
      {Element("CIM_RemoteFileSystem", "/net"), "FileSystemType", "nfs4|"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(row.shown, host_.Show(row.path, row.properties)) << row.path;
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
       {"cpu2/L1 Data", "cpu2/L3 Unified", "cpu3/L1 Data"}},
      {Device("CIM_Processor", "socket0"),
       "CIM_ConcreteComponent",
       {"socket0/core0", "socket0/core1"}},
      {Device("CIM_DiskPartition", "sda1"), "CIM_ResidesOnExtent", {"/dev/disk/by-uuid/1234"}},
      {Device("CIM_LogicalDisk", "dm-0"), "CIM_ResidesOnExtent", {"/dev/mapper/vault"}},
      {Device("CIM_DiskPartition", "sda2"), "CIM_BasedOn", {"dm-0", "sda"}}};
  for (const auto& row : rows)
    EXPECT_EQ(row.ends, ListEnds(*host_.Find(row.path), row.association)) << row.association;
}

TEST_F(MachineCollector, BuildsStorageFromBelow) {
  std::set<std::string> extents;
  for (const std::string& path : host_.ListPaths("CIM_BasedOn"))
    extents.insert(host_.Show(path, "Antecedent StartingAddress EndingAddress"));
  const std::string disk = Device("CIM_LogicalDisk", "sda");
  EXPECT_EQ((std::set<std::string>{Device("CIM_DiskPartition", "sda2") + "|<null>|<null>|",
                                   disk + "|256|767|", disk + "|<null>|<null>|"}),
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
}

TEST(ThisMachine, IsCollected) {
  const THostNamespace host("/");
  EXPECT_EQ(1U, host.ListPaths("CIM_ComputerSystem").size());
  EXPECT_EQ(1U, host.ListPaths("CIM_RunningOS").size());
}

}  // namespace
}  // namespace NZELVYR20
