#include "TSampleMachine.h"

namespace NZELVYR20 {

TSampleMachine::TSampleMachine() {
  WriteSystem();
  WriteProcessors();
  WritePorts();
  WriteDevices();
}

void TSampleMachine::WriteSystem() {
  Write("/proc/sys/kernel/hostname", "box \"7\"\n");
  Write("/proc/sys/kernel/osrelease", "6.1.0-sample\n");
  Write("/proc/meminfo", "MemTotal: 8388608 kB\nSwapTotal: 2097152 kB\n");
  Write("/proc/stat", "cpu 1 2\nbtime 1700000000\n");
  Write("/proc/uptime", "90.51 10.00\n");
  Write("/etc/os-release", "PRETTY_NAME=\"Sample Linux 7\"\n");
  Write("/sys/class/dmi/id/product_name", "Box 3000\n");
  Write("/sys/class/dmi/id/product_version", "To be filled by O.E.M.\n");
  Write("/sys/class/dmi/id/chassis_type", "3\n");
  // In the place of a file that may not be read, which would not hinder the superuser.
  MakeFolder("/sys/class/dmi/id/product_serial");
}

void TSampleMachine::WriteProcessors() {
  std::string text;
  for (int i = 0; i < 4; ++i) {
    const std::string number = std::to_string(i);
    text += "processor\t: " + number + "\nmodel name\t: Sample CPU\n";
    text += "physical id\t: " + std::to_string(i / 2) + "\ncore id\t: " + std::to_string(i % 2);
    text += "\n\n";
    const std::string caches = "/sys/devices/system/cpu/cpu" + number + "/cache/";
    WriteValues(caches, "uevent= index0/level=1 index0/type=Data index0/shared_cpu_list=" + number);
    WriteValues(caches + "index3/", "level=3 type=Unified size=16384K");
    Write(caches + "index3/shared_cpu_list", i < 2 ? "0-1\n" : "2-3\n");
  }
  Write("/proc/cpuinfo", text);
  Write("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq", "3400000\n");
}

void TSampleMachine::WritePorts() {
  const std::string ports = "/sys/class/net/";
  Write(ports + "bonding_masters", "\n");
  WriteValues(ports + "eth0/",
              "type=1 flags=0x1003 operstate=up speed=10000 duplex=full mtu=1500 "
              "address=02:fc:00:0a:0b:0c addr_assign_type=0");
  WriteValues(ports + "eth1/",
              "type=1 flags=0x1003 operstate=down duplex=unknown address=02:fc:00:0a:0b:0d "
              "addr_assign_type=3");
  // A driver that does not know the speed fails when it is asked for it.
  MakeFolder(ports + "eth1/speed");
  WriteValues(ports + "lo/", "type=772 address=00:00:00:00:00:00");
}

void TSampleMachine::WriteDevices() {
  WriteValues("/sys/bus/pci/devices/0000:3b:1f.6/",
              "vendor=0x1AF4 device=0x0041 class=0x020000 revision=0x0a subsystem_vendor=0xffff1");
  MakeFolder("/sys/bus/pci/devices/slots");
  const std::string devices = "/sys/block/";
  WriteValues(devices + "sda/",
              "size=8192 queue/logical_block_size=4096 queue/rotational=0 sda1/partition=1 "
              "sda1/size=4096 sda1/start=2048 sda1/ro=1 sda2/partition=2 sda2/size=1024");
  Write(devices + "sda/device/model", "Disk 9   \n");
  WriteValues(devices + "sdb/", "size=0 removable=1 ro=0");
  MakeFolder(devices + "sdb/device");
  WriteValues(devices, "dm-0/size=1000 dm-0/dm/name=vault loop0/size=0 ram0/size=100");
  MakeFolder(devices + "dm-0/slaves/sda2");
  Link("/dev/disk/by-uuid/1234", "../../sda1");
  Write("/proc/filesystems", "nodev\tproc\nnodev\ttmpfs\nnodev\tnfs4\n\text4\n");
  Write("/proc/mounts",
        "proc /proc proc rw 0 0\n/dev/disk/by-uuid/1234 / ext4 ro 0 0\n"
        "/dev/mapper/vault /my\\040files ext4 rw 0 0\ntmpfs /run tmpfs rw 0 0\n"
        "srv:/all /net nfs4 rw 0 0\n/dev/gone /gone ext4 rw 0 0\n");
}

}  // namespace NZELVYR20
