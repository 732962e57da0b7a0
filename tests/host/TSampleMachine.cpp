#include "TSampleMachine.h"

#include <filesystem>
#include <utility>

namespace NZELVYR20 {
namespace {

const std::pair<const char*, const char*> kFiles[] = {
    {"/proc/sys/kernel/hostname", "box \"7\"\n"},
    {"/proc/meminfo",
     "MemTotal: 8388608 kB\nMemFree: 4194304 kB\nSwapTotal: 2097152 kB\nSwapFree: 1048576 kB\n"},
    {"/dev/disk/by-uuid/", ""},
    {"/proc/stat", "cpu 1 2\nbtime 1700000000\n"},
    {"/proc/uptime", "90.51 10.00\n"},
    {"/proc/cpuinfo",
     "processor : 0\nphysical id : 0\ncore id : 0\n\nprocessor : 1\nphysical id : 0\ncore id : "
     "1\n\n"
     "processor : 2\nvendor_id : Maker\nmodel name : Sample CPU\nstepping : 7\nflags : lm\n"
     "cpu MHz : 2600.5\nphysical id : 1\ncore id : 0\n\n"
     "processor : 3\nmodel name : Slow CPU\nphysical id : 1\ncore id : 0\n\n"},
    {"/proc/version", "Sample version\n"},
    {"/proc/17/", ""},
    {"/sys/class/dmi/id/sys_vendor", "Box Makers\n"},
    {"/etc/os-release", "PRETTY_NAME=\"Sample Linux 7\"\n"},
    {"/sys/class/dmi/id/product_name", "Box 3000\n"},
    {"/sys/class/dmi/id/product_version", "To be filled by O.E.M.\n"},
    // A folder in the place of a file that may not be read, which would not hinder the superuser.
    {"/sys/class/dmi/id/product_serial/", ""},
    {"/sys/class/net/bonding_masters", "\n"},
    // A driver that does not know the speed fails when it is asked for it.
    {"/sys/class/net/eth1/speed/", ""},
    {"/sys/bus/pci/devices/slots/", ""},
    {"/sys/block/sda/device/model", "Disk 9   \n"},
    {"/sys/block/sdb/device/", ""},
    {"/sys/block/dm-0/slaves/sda2/", ""},
    {"/sys/block/md0/slaves/dm-0/", ""},
    {"/proc/filesystems", "nodev\tproc\nnodev\ttmpfs\nnodev\tnfs4\n\text4\n\tbtrfs\n"},
    {"/proc/mounts",
     "proc /proc proc rw 0 0\n/dev/disk/by-uuid/1234 / ext4 ro 0 0\n"
     "/dev/mapper/vault /my\\040files btrfs rw 0 0\ntmpfs /run tmpfs rw 0 0\n"
     "srv:/all /net nfs4 rw 0 0\n/dev/gone /gone ext4 rw 0 0\n"
     "/dev/mapper/vault /again btrfs rw,subvolid=5,subvol=/@again 0 0\n"},
};

}  // namespace

TSampleMachine::TSampleMachine() {
  for (const auto& [path, text] : kFiles) Write(path, text);
  WriteValues("",
              "/proc/sys/kernel/osrelease=6.1.0-sample /proc/sys/kernel/pid_max=99 "
              "/sys/class/dmi/id/chassis_type=23 /sys/class/dmi/id/product_sku=SKU7");
  for (const std::string cpu : {"0", "1", "2", "3"}) {
    const std::string folder = "/sys/devices/system/cpu/cpu" + cpu + "/cache/";
    WriteValues(folder, "uevent= index0/level=1 index0/type=Data index0/shared_cpu_list=" + cpu);
    WriteValues(folder + "index3/", "level=3 type=Unified size=16384K");
    WriteValues(folder + "index0/", "ways_of_associativity=12 coherency_line_size=64");
    Write(folder + "index3/shared_cpu_list", cpu < "2" ? "0-1\n" : "2-3\n");
  }
  // Core 0 of both clusters, which only the siblings tell apart; the last processor is the faster.
  WriteValues(
      "/sys/devices/system/cpu/",
      "online=0-4 cpu2/topology/thread_siblings_list=2 cpu3/topology/thread_siblings_list=3 "
      "cpu2/cpufreq/cpuinfo_max_freq=1416000 cpu3/cpufreq/cpuinfo_max_freq=1800000");
  WriteValues("/sys/devices/system/cpu/cpu3/cache/index4/",
              "level=4 type=Trace ways_of_associativity=11");
  WriteValues("/sys/class/net/lo/", "type=772 address=00:00:00:00:00:00 uevent=DEVTYPE=odd");
  WriteValues("/sys/class/net/eth0/",
              "type=1 flags=0x1003 operstate=up speed=10000 duplex=full "
              "address=02:fc:00:0a:0b:0c addr_assign_type=0 mtu=1500");
  WriteValues("/sys/class/net/eth1/",
              "type=1 flags=0x1003 operstate=down address=02:fc:00:0a:0b:0d addr_assign_type=3");
  WriteValues("/sys/bus/pci/devices/0000:3b:1f.6/",
              "vendor=0x1AF4 device=0x0041 class=0x020000 revision=0x0a subsystem_vendor=0xffff1 "
              "subsystem_device=0x0a21");
  WriteValues("/sys/block/sda/",
              "size=8192 queue/logical_block_size=4096 queue/rotational=0 sda1/partition=1 "
              "device/vendor=ACME device/state=blocked ro=0 "
              "sda1/size=4096 sda1/start=2048 sda1/ro=1 sda2/partition=2 sda2/size=1024");
  WriteValues("/sys/block/",
              "sdb/size=0 sdb/removable=1 sdb/ro=0 dm-0/size=1000 dm-0/ro=0 dm-0/dm/name=vault "
              "dm-0/dm/uuid=LVM-x loop0/size=0 ram0/size=100 nvme0c0n1/hidden=1 nvme0c0n1/size=8 "
              "sr0/device/type=5 sr0/device/vendor=ACME sr0/size=0 sr0/queue/rotational=1");
  WriteValues("/sys/block/md0/", "size=0 md/level=raid1 md/raid_disks=2 md/degraded=1");
  WriteValues("/sys/block/md0/md/", "array_state=clean sync_action=recover");
  std::filesystem::create_symlink("../../sda1", GetRoot() + "/dev/disk/by-uuid/1234");
}

}  // namespace NZELVYR20
