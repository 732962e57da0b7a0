#include <gtest/gtest.h>

#include <sys/statvfs.h>

#include <algorithm>
#include <set>
#include <sstream>

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
      {"CIM_Processor", 2},        {"CIM_ProcessorCore", 4},        {"CIM_Memory", 7},
      {"CIM_NetworkPort", 3},      {"CIM_EthernetPort", 2},         {"CIM_DiskDrive", 3},
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
  const std::pair<std::string, const char*> rows[] = {
      {kSystem, "ElementName=box \"7\"|EnabledState=Enabled|NameFormat=Other|"},
      {kChassis,
       "ChassisPackageType=Other|ChassisTypeDescription=Rack Mount Chassis|ElementName=Box "
       "3000|Manufacturer=Box Makers|Model=Box 3000|SKU=SKU7|"},
      {Element("CIM_OperatingSystem", "Sample Linux 7"),
       "Description=Sample version|ElementName=Sample Linux "
       "7|EnabledState=Enabled|FreePhysicalMemory=4 Gigabytes|FreeSpaceInPagingFiles=1,024 "
       "Megabytes|FreeVirtualMemory=5 Gigabytes|LastBootUpTime=2023-11-14 22:13:20 "
       "+00:00|LocalDateTime=2023-11-14 22:14:50 "
       "+00:00|MaxNumberOfProcesses=99|NumberOfProcesses=1|OSType=LINUX|SizeStoredInPagingFiles=2,"
       "048 Megabytes|TotalVirtualMemorySize=10 Gigabytes|TotalVisibleMemorySize=8 "
       "Gigabytes|Version=6.1.0-sample|"},
      {Device("CIM_Processor", "socket1"),
       "AddressWidth=64 Bits|CPUStatus=CPU Enabled|CurrentClockSpeed=2600|DataWidth=64 "
       "Bits|Description=Maker|ElementName=Sample CPU + Slow "
       "CPU|EnabledState=Enabled|Family=Other|MaxClockSpeed=1800|Name=Sample CPU + Slow "
       "CPU|NumberOfEnabledCores=2|OtherFamilyDescription=Sample CPU + Slow CPU|Role=Central "
       "Processor|Stepping=7|"},
      {"CIM_ProcessorCore.InstanceID=\"socket1/core0/cpu3\"",
       "CoreEnabledState=Core Enabled|ElementName=socket1/core0/cpu3|EnabledState=Enabled|"},
      {Device("CIM_Memory", "cpu2/L3 Unified"),
       "BlockSize=1 Bytes|Caption=16.0 MiB (16777216 bytes)|ElementName=cpu2/L3 "
       "Unified|NumberOfBlocks=16777216|Purpose=Processor cache|Volatile=TRUE|"},
      {Device("CIM_EthernetPort", "eth0"),
       "ActiveMaximumTransmissionUnit=1500|ElementName=eth0|EnabledState=Enabled|FullDuplex=TRUE|"
       "LinkTechnology=Ethernet|Name=eth0|NetworkAddresses={02FC000A0B0C}|OperationalStatus={2}|"
       "PermanentAddress=02FC000A0B0C|PortType=Unknown|Speed=10 Gbps|"},
      {Device("CIM_EthernetPort", "eth1"),
       "ElementName=eth1|EnabledState=Enabled but "
       "Offline|LinkTechnology=Ethernet|Name=eth1|NetworkAddresses={02FC000A0B0D}|"
       "OperationalStatus={10}|PortType=Unknown|"},
      {Device("CIM_NetworkPort", "lo"),
       "Description=odd|ElementName=lo|EnabledState=Unknown|LinkTechnology=Other|Name=lo|"
       "OperationalStatus={0}|OtherLinkTechnology=Loopback|PortType=Unknown|"},
      {Device("CIM_PCIDevice", "0000:3b:1f.6"),
       "BusNumber=3b|ClassCode=Network|DeviceNumber=1f|ElementName=0000:3b:1f.6|FunctionNumber=6|"
       "PCIDeviceID=41|RevisionID=a|SubsystemID=a21|VendorID=1af4|"},
      {Device("CIM_DiskDrive", "sda"),
       "Capabilities={3,4}|DefaultBlockSize=4 Kilobytes|Description=ACME|DiskType=Solid State "
       "Drive|ElementName=Disk 9|MaxMediaSize=4 "
       "Megabytes|Name=/dev/sda|OperationalStatus={1}|StatusDescriptions={blocked}|"},
      {Device("CIM_DiskDrive", "sdb"),
       "Capabilities={3,4,7}|DiskType=Unknown|ElementName=sdb|Name=/dev/sdb|"},
      {Device("CIM_DiskDrive", "sr0"),
       "Capabilities={3}|Description=Optical drive, "
       "ACME|DiskType=Other|ElementName=sr0|Name=/dev/sr0|"},
      {Device("CIM_DiskPartition", "sda1"),
       "Access=Readable|BlockSize=4 Kilobytes|Caption=2.0 MiB (2097152 "
       "bytes)|ElementName=sda1|Name=/dev/sda1|NumberOfBlocks=512|"},
      {Device("CIM_LogicalDisk", "dm-0"),
       "Access=Read/Write Supported|BlockSize=512 Bytes|Caption=500.0 KiB (512000 "
       "bytes)|Description=Logical "
       "volume|ElementName=vault|Name=/dev/dm-0|NumberOfBlocks=1000|"},
      {Device("CIM_LogicalDisk", "md0"),
       "Description=Array of "
       "disks|ElementName=md0|ErrorMethodology=raid1|HealthState=Degraded/Warning|Name=/dev/"
       "md0|OperationalStatus={3}|StatusDescriptions={clean; 1 of 2 disks missing; recover}|"},
      {Element("CIM_LocalFileSystem", "/"),
       "ElementName=/dev/disk/by-uuid/"
       "1234|EnabledState=Enabled|FileSystemType=ext4|PersistenceType=Persistent|ReadOnly=TRUE|"
       "Root=/|"},
      {Element("CIM_LocalFileSystem", "/run"),
       "ElementName=tmpfs|EnabledState=Enabled|FileSystemType=tmpfs|PersistenceType=Temporary|"
       "ReadOnly=FALSE|Root=/run|"},
      {Element("CIM_LocalFileSystem", "/my files"),
       "ElementName=/dev/mapper/"
       "vault|EnabledState=Enabled|FileSystemType=ext4|PersistenceType=Persistent|ReadOnly=FALSE|"
       "Root=/my files|"},
      {Element("CIM_RemoteFileSystem", "/net"),
       "ElementName=srv:/all|EnabledState=Enabled|FileSystemType=nfs4|ReadOnly=FALSE|Root=/net|"},
  };
  TTexts paths;
  for (const auto& [path, shown] : rows) {
    EXPECT_EQ(shown, host_.ShowAll(path)) << path;
    paths.push_back(path);
  }
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
