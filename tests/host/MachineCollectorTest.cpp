#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "ICIMProperty.h"
#include "THostNamespace.h"
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
std::string JoinEnds(ICIMInstance& instance, const std::string& association) {
  std::set<std::string> names;
  instance.EnumerateAssociatedInstances(
      [&names](const boost::shared_ptr<ICIMInstance>& end) {
        const TCIMValue name = end->GetProperty("ElementName", {})->GetValue({});
        return names.insert(name.ToString(10) + ' ').second;
      },
      association, "CIM_ManagedElement", "", "", {});
  return std::accumulate(names.begin(), names.end(), std::string());
}

class MachineCollector : public testing::Test {
 protected:
  const TSampleMachine tree_;
  const THostNamespace host_{tree_.GetRoot()};
};

TEST_F(MachineCollector, AddsAllThatThereIs) {
  const std::pair<const char*, std::size_t> rows[] = {
      {"CIM_ComputerSystem", 1},    {"CIM_Chassis", 1},
      {"CIM_OperatingSystem", 1},   {"CIM_Processor", 2},
      {"CIM_ProcessorCore", 4},     {"CIM_Memory", 6},
      {"CIM_NetworkPort", 3},       {"CIM_EthernetPort", 2},
      {"CIM_DiskDrive", 2},         {"CIM_LogicalDisk", 2},
      {"CIM_DiskPartition", 2},     {"CIM_FileSystem", 5},
      {"CIM_SystemDevice", 18},     {"CIM_HostedFileSystem", 5},
      {"CIM_RunningOS", 1},         {"CIM_InstalledOS", 1},
      {"CIM_ConcreteComponent", 4}, {"CIM_AssociatedCacheMemory", 6},
      {"CIM_MediaPresent", 1},      {"CIM_BasedOn", 3},
      {"CIM_ResidesOnExtent", 2},   {"CIM_ComputerSystemPackage", 1},
      {"CIM_PCIDevice", 1},
  };
  for (const auto& [name, count] : rows) EXPECT_EQ(count, host_.Count(name)) << name;
  EXPECT_EQ(TTexts(), host_.GetMessages());
  EXPECT_EQ((TTexts{"/sys/class/dmi/id/product_serial", "statvfs of 1 mount(s)",
                    "statvfs of 4 mount(s)"}),
            host_.GetNoted());
}

TEST_F(MachineCollector, FillsProperties) {
  const std::string system = Element("CIM_OperatingSystem", "Sample Linux 7");
  const std::string processor = Device("CIM_Processor", "socket1");
  const std::string eth0 = Device("CIM_EthernetPort", "eth0");
  const std::string eth1 = Device("CIM_EthernetPort", "eth1");
  const std::string network = Device("CIM_PCIDevice", "0000:3b:1f.6");
  const std::string drive = Device("CIM_DiskDrive", "sda");
  const std::string reader = Device("CIM_DiskDrive", "sdb");
  const std::string partition = Device("CIM_DiskPartition", "sda1");
  const struct {
    std::string path;
    const char* property;
    const char* shown;
  } rows[] = {
      {kSystem, "EnabledState", "Enabled"},
      {kChassis, "Model", "Box 3000"},
      {kChassis, "Version", "<null>"},
      {kChassis, "ChassisPackageType", "Desktop"},
      {system, "OSType", "LINUX"},
      {system, "Version", "6.1.0-sample"},
      {system, "TotalVisibleMemorySize", "8 Gigabytes"},
      {system, "TotalVirtualMemorySize", "10 Gigabytes"},
      {system, "LastBootUpTime", "2023-11-14 22:13:20 +00:00"},
      {system, "LocalDateTime", "2023-11-14 22:14:50 +00:00"},
      {system, "NumberOfProcesses", "<null>"},
      {processor, "OtherFamilyDescription", "Sample CPU"},
      {processor, "NumberOfEnabledCores", "2"},
      {processor, "MaxClockSpeed", "<null>"},
      {Device("CIM_Processor", "socket0"), "MaxClockSpeed", "3400"},
      {Device("CIM_Memory", "cpu2/L3 Unified"), "NumberOfBlocks", "16777216"},
      {eth0, "Speed", "10 Gbps"},
      {eth0, "PermanentAddress", "02FC000A0B0C"},
      {eth0, "OperationalStatus", "{2}"},
      {eth0, "FullDuplex", "TRUE"},
      {eth0, "ActiveMaximumTransmissionUnit", "1500"},
      {eth1, "Speed", "Unknown"},
      {eth1, "FullDuplex", "<null>"},
      {eth1, "PermanentAddress", "<null>"},
      {eth1, "NetworkAddresses", "{02FC000A0B0D}"},
      {eth1, "EnabledState", "Enabled but Offline"},
      {Device("CIM_NetworkPort", "lo"), "OtherLinkTechnology", "Loopback"},
      {network, "BusNumber", "59"},
      {network, "DeviceNumber", "31"},
      {network, "FunctionNumber", "6"},
      {network, "VendorID", "1af4"},
      {network, "PCIDeviceID", "41"},
      {network, "SubsystemVendorID", "<null>"},
      {network, "RevisionID", "a"},
      {network, "ClassCode", "Network"},
      {drive, "ElementName", "Disk 9"},
      {drive, "DiskType", "Solid State Drive"},
      {drive, "MaxMediaSize", "4 Megabytes"},
      {reader, "Capabilities", "{3,4,7}"},
      {reader, "MaxMediaSize", "<null>"},
      {partition, "NumberOfBlocks", "512"},
      {partition, "Access", "Readable"},
      {Element("CIM_LocalFileSystem", "/"), "ReadOnly", "TRUE"},
      {Element("CIM_LocalFileSystem", "/my files"), "FileSystemSize", "<null>"},
      {Element("CIM_RemoteFileSystem", "/net"), "FileSystemType", "nfs4"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(row.shown, host_.Show(row.path, row.property)) << row.path << ' ' << row.property;
}

TEST_F(MachineCollector, LinksWhatBelongsTogether) {
  const struct {
    std::string path;
    const char* association;
    const char* ends;  ///< their names, ascending
  } rows[] = {
      {kSystem, "CIM_RunningOS", "Sample Linux 7 "},
      {kSystem, "CIM_ComputerSystemPackage", "Box 3000 "},
      {Device("CIM_Processor", "socket0"), "CIM_ConcreteComponent", "socket0/core0 socket0/core1 "},
      {Device("CIM_Processor", "socket1"), "CIM_AssociatedCacheMemory",
       "cpu2/L1 Data cpu2/L3 Unified cpu3/L1 Data "},
      {Device("CIM_DiskDrive", "sda"), "CIM_MediaPresent", "sda "},
      {Device("CIM_DiskDrive", "sdb"), "CIM_MediaPresent", ""},
      {Device("CIM_LogicalDisk", "sda"), "CIM_BasedOn", "sda1 sda2 "},
      {Device("CIM_DiskPartition", "sda2"), "CIM_BasedOn", "dm-0 sda "},
      {Device("CIM_DiskPartition", "sda1"), "CIM_ResidesOnExtent", "/dev/disk/by-uuid/1234 "},
      {Device("CIM_LogicalDisk", "dm-0"), "CIM_ResidesOnExtent", "/dev/mapper/vault "},
      {Element("CIM_LocalFileSystem", "/gone"), "CIM_ResidesOnExtent", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.ends, JoinEnds(*host_.Find(row.path), row.association))
        << row.path << ' ' << row.association;
  }
}

TEST_F(MachineCollector, BuildsStorageFromBelow) {
  const TTexts links = host_.ListPaths("CIM_BasedOn");
  const auto find = [&links](const std::string& text) {
    const auto link = std::find_if(links.begin(), links.end(), [&text](const std::string& path) {
      return path.find(text) != std::string::npos;
    });
    return link == links.end() ? "no link of " + text : *link;
  };
  EXPECT_EQ(Device("CIM_DiskPartition", "sda2"), host_.Show(find("dm-0"), "Antecedent"));
  EXPECT_EQ(Device("CIM_LogicalDisk", "sda"), host_.Show(find("sda1"), "Antecedent"));
  EXPECT_EQ("256", host_.Show(find("sda1"), "StartingAddress")) << "in blocks of 4096 bytes";
  EXPECT_EQ("767", host_.Show(find("sda1"), "EndingAddress"));
}

TEST_F(MachineCollector, CollectingAgainReplaces) {
  const TTexts paths = host_.ListPaths("CIM_ManagedElement");
  TMachineCollector(tree_.GetRoot()).Collect(host_.Get());
  EXPECT_EQ(paths, host_.ListPaths("CIM_ManagedElement"));
}

TEST(PoorMachine, NothingAtAll) {
  const TSampleTree tree;
  const THostNamespace host(tree.GetRoot() + "//");
  EXPECT_EQ(1U, host.Count("CIM_ManagedElement"));
  EXPECT_EQ(1U, host.Count("CIM_ComputerSystem"));
  EXPECT_EQ(0U, host.Count("CIM_Component"));
  EXPECT_EQ(TTexts(), host.GetMessages());
  EXPECT_EQ((TTexts{"/proc/sys/kernel/hostname", "/sys/class/dmi/id", "/etc/os-release",
                    "/proc/sys/kernel/osrelease", "/proc/cpuinfo", "/sys/class/net", "/sys/block",
                    "/proc/filesystems", "/proc/mounts"}),
            host.GetNoted());
}

TEST(PoorMachine, OddTrees) {
  const struct {
    const char* description;
    const char* path;
    const char* text;  ///< null for a folder
  } rows[] = {
      {"a folder in the place of a file", "/proc/cpuinfo", nullptr},
      {"a file in the place of a folder", "/sys/class/net", "x"},
      {"data of another kind", "/proc/cpuinfo", "\x7f\x45\x4c\x46\x01\x02\n:::\n"},
  };
  for (const auto& row : rows) {
    TSampleTree tree;
    if (row.text == nullptr) {
      tree.MakeFolder(row.path);
    } else {
      tree.Write(row.path, row.text);
    }
    const TTexts noted = THostNamespace(tree.GetRoot()).GetNoted();
    EXPECT_EQ(1, std::count(noted.begin(), noted.end(), row.path)) << row.description;
  }
}

TEST(PoorMachine, AnIdentityFromTheDeviceTree) {
  TSampleTree tree;
  tree.Write("/proc/device-tree/model", std::string("Sample Board 4\0", 15));
  const THostNamespace host(tree.GetRoot());
  EXPECT_EQ("Sample Board 4", host.Show(kChassis, "Model"));
  const TTexts noted = host.GetNoted();
  EXPECT_EQ(0, std::count(noted.begin(), noted.end(), "/sys/class/dmi/id"));
}

TEST(ThisMachine, IsCollected) {
  const THostNamespace host("/");
  EXPECT_EQ(1U, host.Count("CIM_ComputerSystem"));
  EXPECT_EQ(1U, host.Count("CIM_RunningOS"));
  EXPECT_EQ(TTexts(), host.GetMessages());
  for (const TCollectorNote& note : host.GetNotes())
    EXPECT_FALSE(note.area.empty() || note.what.empty() || note.why.empty()) << note.what;
  std::size_t unmeasured = 0;
  const TTexts fileSystems = host.ListPaths("CIM_FileSystem");
  for (const std::string& path : fileSystems)
    if (host.Show(path, "FileSystemSize") == "<null>") ++unmeasured;
  const TTexts noted = host.GetNoted();
  EXPECT_EQ(unmeasured == 0, std::none_of(noted.begin(), noted.end(), [](const std::string& what) {
              return what.rfind("statvfs", 0) == 0;
            }));
}

}  // namespace
}  // namespace NZELVYR20
