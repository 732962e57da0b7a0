#include <gtest/gtest.h>

#include "BlockDeviceText.h"
#include "MountText.h"
#include "NetworkText.h"
#include "ProcessorText.h"
#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

using TNumber = std::optional<std::uint64_t>;

/// "-" for nothing.
template <class TValue>
std::string Show(const std::optional<TValue>& value) {
  return value ? std::to_string(*value) : "-";
}

struct TRow {
  const char* description;
  std::string text;
  std::string summary;
};

/// Compares what `summarize` makes of each text.
template <class TSummarize>
void Check(TSummarize summarize, const std::vector<TRow>& rows) {
  for (const TRow& row : rows) EXPECT_EQ(row.summary, summarize(row.text)) << row.description;
}

TEST(TextParsers, Fields) {
  EXPECT_EQ(TNumber(18446744073709551615U), ParseUnsigned(" 18446744073709551615\r\n"));
  for (const char* text : {"18446744073709551616", "-1", "+1", "1 2", "0x10", "", " "}) {
    EXPECT_EQ(TNumber(), ParseUnsigned(text)) << text;
  }
  EXPECT_FALSE(ParseNumber<std::uint16_t>("65536"));
  EXPECT_EQ(TNumber(), Add(18446744073709551615U, 1));
  EXPECT_EQ(TNumber(), Multiply(18446744073709551615U, 2));
}

/// For each: number, vendor, model and stepping; package, core, MHz and bits; family.
std::string SummarizeProcessors(const std::string& text) {
  std::string summary;
  auto [processors, shared] = ParseProcessors(text);
  if (processors.empty()) processors.push_back(shared);
  for (const TLogicalProcessor& processor : processors) {
    summary += '#' + std::to_string(processor.index) + ' ' + processor.vendor + ',' +
               processor.modelName + ',' + processor.stepping + ' ' + Show(processor.package) +
               ' ' + Show(processor.core) + ' ' + Show(processor.megaHertz) + ' ' +
               Show(processor.addressBits) + " =" + std::to_string(FindProcessorFamily(processor)) +
               '\n';
  }
  return summary;
}

TEST(TextParsers, Processors) {
  Check(
      SummarizeProcessors,
      {{"x86: each record has its own fields",
        "processor\t: 0\nvendor_id\t: Some\nmodel name\t: Xeon 5\nstepping\t: 7\nphysical id\t: 0\n"
        "core id\t\t: 0\ncpu MHz\t\t: 2600.002\nflags\t\t: fpu lm sse\npower management:\n\n"
        "processor\t: 1\nphysical id\t: 1\ncore id\t\t: 4\nflags\t\t: fpu almost\n\n",
        "#0 Some,Xeon 5,7 0 0 2600 64 =179\n#1 ,, 1 4 - 32 =2\n"},
       {"ARM before Linux 3.8: the common fields stand around the records",
        "Processor\t: ARMv7 rev 4 (v7l)\nprocessor\t: 0\n\nprocessor\t: 1\nBogoMIPS\t: 38.40\n\n"
        "Features\t: swp half\nCPU architecture: 7\nCPU revision\t: 4\n\nHardware\t: Board\n",
        "#0 ,ARMv7 rev 4 (v7l),4 - - - 32 =256\n#1 ,ARMv7 rev 4 (v7l),4 - - - 32 =256\n"},
       {"ARM of 64 bits", "processor: 0\nCPU architecture: AArch64\n", "#0 ,, - - - 64 =257\n"},
       {"ARM, no record", "Processor : v6\nCPU architecture: 6TEJ\n", "#0 ,v6, - - - 32 =280\n"},
       {"ARM, by numbers: the known part says more than the name",
        "processor : 0\nmodel name : v8\nCPU implementer : 0x41\nCPU part : 0xd08\n\n"
        "processor : 1\nmodel name : v8\nCPU implementer : 0x48\nCPU part : 0x0ff\n",
        "#0 ARM,Cortex-A72, - - - - =1\n#1 HiSilicon,HiSilicon part 0x0ff, - - - - =1\n"},
       {"POWER", "processor : 8\ncpu : POWER9\nclock : 3800.0MHz\n",
        "#8 ,POWER9, - - 3800 - =32\n"},
       {"RISC-V", "processor\t: 3\nisa\t\t: rv64imafdc\n", "#3 ,, - - - 64 =1\n"},
       {"LoongArch", "processor : 1\npackage : 0\ncore : 1\nModel Name : L5\nCPU MHz : 2500.00\n",
        "#1 ,L5, 0 1 2500 - =1\n"},
       {"s390x: a line, and later a record, for each",
        "vendor_id : IBM/S390\n# processors : 2\nprocessor 0: version = FF,  machine = 2964\n"
        "processor 1: version = FF,  machine = 2964\n\ncpu number : 1\nphysical id : 2\n"
        "core id : 3\ncpu MHz dynamic : 5000\n",
        "#0 IBM/S390,machine type 2964, - - - - =200\n"
        "#1 IBM/S390,machine type 2964, 2 3 5000 - =200\n"},
       {"no list", "cpu : UltraSparc T2\nncpus active : 4\n", "#0 ,UltraSparc T2, - - - - =84\n"},
       {"CR LF, cut off inside a name",
        "processor : 0\r\nmodel name : A\r\n\r\nprocessor : 1\r\nstepping : 2\r\nmodel na",
        "#0 ,A, - - - - =1\n#1 ,,2 - - - - =2\n"},
       {"numbers that do not fit",
        "processor : 5\nphysical id : 4294967296\ncore id : -1\ncpu MHz : 99999999999\n",
        "#5 ,, - - - - =2\n"},
       {"an index that does not fit", "processor : 4294967296\nstepping : 2\n",
        "#0 ,,2 - - - - =2\n"}});
}

TEST(TextParsers, Caches) {
  EXPECT_EQ(49152U, ParseCacheSize("48K\n"));
  EXPECT_EQ(17U, ParseCacheSize("17"));
  for (const char* text : {"K", "", "4X", "-4K", "18014398509481984K"}) {
    EXPECT_FALSE(ParseCacheSize(text)) << text;
  }
  EXPECT_EQ((std::vector<std::uint32_t>{2, 3, 8}), ParseList("2-3,8\n"));
  EXPECT_EQ(65536U, ParseList("0-65535").size());
  for (const char* text : {"", "3-2", "1,x", "0-4294967295", "0-65535,7"}) {
    EXPECT_TRUE(ParseList(text).empty()) << text;
  }
  const std::pair<const char*, int> ways[] = {
      {"0", 5},   {"1", 2},  {"2", 3},   {"4", 4},   {"8", 6},   {"12", 8}, {"16", 7},
      {"20", 13}, {"24", 9}, {"32", 10}, {"48", 11}, {"64", 12}, {"3", 1},  {"", 0}};
  for (const auto& [text, code] : ways) EXPECT_EQ(code, ParseAssociativity(text)) << text;
  const std::pair<const char*, int> levels[] = {{"", 0}, {"1", 3}, {"2", 4}, {"3", 5}, {"4", 1}};
  for (const auto& [text, code] : levels) EXPECT_EQ(code, ParseCacheLevel(text)) << text;
  EXPECT_EQ(2, ParseCacheType("Instruction"));
}

TEST(TextParsers, Releases) {
  const auto summarize = [](const std::string& text) {
    const TReleaseFacts facts = ParseRelease(text);
    return facts.prettyName + '|' + facts.name;
  };
  Check(
      summarize,
      {{"double quotes", "PRETTY_NAME=\"Sample 7 (x)\"\nNAME=\"Sample\"\n", "Sample 7 (x)|Sample"},
       {"no quotes, no line end", "NAME=Sample", "|Sample"},
       {"single quotes and CR LF", "NAME='A B'\r\nPRETTY_NAME='A B 1'\r\n", "A B 1|A B"},
       {"escapes inside quotes", "NAME=\"The \\\"Best\\\" \\$1\"\n", "|The \"Best\" $1"},
       {"cut off inside quotes", "PRETTY_NAME=\"Sample Li", "Sample Li|"},
       {"cut off after a back-slash", "NAME=\"Sample\\", "|Sample\\"},
       {"comments and rubbish", "# NAME=none\n\n=\nNAME\n", "|"}});
}

TEST(TextParsers, Memory) {
  const auto summarize = [](const std::string& text) {
    const TMemoryFacts facts = ParseMemory(text);
    return Show(facts.total) + ' ' + Show(facts.swapFree);
  };
  Check(summarize, {{"usual, CR LF", "MemTotal:   7 kB\r\nSwapFree: 0 kB\r\n", "7 0"},
                    {"the number may be cut, too", "SwapFree: 3 kB\nMemTotal:  163", "- 3"},
                    {"too large", "MemTotal: 99999999999999999999 kB\n", "- -"},
                    {"similar names", "MemTotalHigh: 3 kB\nxSwapFree: 2 kB\n", "- -"}});
}

TEST(TextParsers, TimesAndFirmware) {
  EXPECT_EQ(TNumber(1700000000), ParseBootTime("cpu  1 2 3\nbtime 1700000000\nprocesses 9\n"));
  EXPECT_EQ(TNumber(), ParseUptime(""));
  EXPECT_EQ("20240229235959.000000+000", ToTimeStamp(1709251199).value().ToCIMString());
  EXPECT_EQ("99991231235959.000000+000", ToTimeStamp(253402300799).value().ToCIMString());
  EXPECT_FALSE(ToTimeStamp(253402300800)) << "one second too late";
  const auto summarize = [](const std::string& text) {
    const auto form = ParseChassisForm(text);
    return form ? std::to_string(form->type) + ' ' + form->other : "-";
  };
  Check(summarize, {{"not said", "0", "-"},
                    {"other", "1", "1 Other than the forms that firmware knows"},
                    {"firmware's number for unknown", "2\n", "0 "},
                    {"both number alike", "3", "3 "},
                    {"a rack", "23", "1 Rack Mount Chassis"},
                    {"several systems", "25", "1 Multi-system Chassis"},
                    {"a blade", "28", "1 Blade"},
                    {"its enclosure", "29", "28 "},
                    {"the last", "36", "36 "},
                    {"not in the standard's list", "37", "1 Firmware's number 37"}});
}

TEST(TextParsers, Ports) {
  EXPECT_EQ(400000000000U, ParsePortSpeed("400000\n"));
  for (const char* text : {"-1", "4294967295", "65535", "0", "", "18446744073709551615"}) {
    EXPECT_FALSE(ParsePortSpeed(text)) << text;
  }
  EXPECT_EQ(0, ParseLinkKind("4711").technology);
  EXPECT_EQ(false, ParseFullDuplex("half"));
  EXPECT_EQ("80000048FE80000000000002C9030A1B",
            ParseHardwareAddress("80:00:00:48:fe:80:00:00:00:00:00:02:c9:03:0a:1b"));
  for (const char* text : {"00:00:00:00:00:00", "02:fc:00:0a:0b:zz", "02:fc:0"}) {
    EXPECT_EQ("", ParseHardwareAddress(text)) << text;
  }
  EXPECT_EQ(10, ParsePortState("down", "0x1002").operationalStatus);
  EXPECT_EQ(3, ParsePortState("down", "0x1002").enabledState);
  EXPECT_EQ(0, ParsePortState("unknown", "0x9").operationalStatus) << "loopback does not tell";
  EXPECT_EQ(0, ParsePortState("up", "").enabledState) << "flags cannot be read";
}

TEST(TextParsers, BlockDevices) {
  EXPECT_EQ(256U, ParseExtentSize("2048", "4096").value().blocks);
  EXPECT_EQ(512U, ParseExtentSize("8", "").value().blockSize);
  EXPECT_EQ(512U, ParseExtentSize("8", "0").value().blockSize);
  EXPECT_FALSE(ParseExtentSize("36028797018963968", "512")) << "too large in bytes";
  EXPECT_EQ("/dev/cciss/c0d0", GetDeviceFile("cciss!c0d0"));
  EXPECT_EQ("1023 bytes", DescribeSize(1023));
  EXPECT_EQ("1.0 KiB (1024 bytes)", DescribeSize(1024));
  EXPECT_EQ("465.7 GiB (500107862016 bytes)", DescribeSize(500107862016));
  EXPECT_EQ("15.9 EiB (18446744073709551615 bytes)", DescribeSize(18446744073709551615U));
  const std::set<std::string> drives = ParseDvdDrives(
      "CD-ROM information\n\ndrive name:\t\tsr1\tsr10\nCan read MRW:\t1\t1\nCan read DVD:\t0\t1");
  EXPECT_EQ("CIM_DVDDrive", FindDriveClass("sr10", "", drives));
  EXPECT_EQ("CIM_CDROMDrive", FindDriveClass("sr1", "", drives));
  EXPECT_EQ("CIM_DisketteDrive", FindDriveClass("fd0", "", {}));
  EXPECT_EQ("CIM_DiskDrive", FindDriveClass("sda", "0", {}));
  EXPECT_EQ("CIM_DiskDrive", FindDriveClass("sram", "", {}));
  EXPECT_EQ("Encrypted volume", ParseMapperKind("CRYPT-LUKS2-0-x"));
  const auto summarize = [](const std::string& state) {
    const TArrayState array = ParseArrayState(state, state == "broken" ? "2" : "0", "3", "idle");
    return std::to_string(array.operationalStatus) + ' ' + std::to_string(array.healthState) + ' ' +
           array.description;
  };
  Check(summarize, {{"whole", "active", "2 5 active"},
                    {"stopped", "inactive", "10 0 inactive"},
                    {"lost", "broken", "6 25 broken; 2 of 3 disks missing"}});
}

TEST(TextParsers, Mounts) {
  const auto summarize = [](const std::string& text) {
    std::string summary;
    for (const TMount& mount : ParseMounts(text)) {
      summary += mount.source + '|' + mount.mountPoint + '|' + mount.type +
                 (mount.isReadOnly ? "|ro" : "|rw") + mount.subvolume + ';';
    }
    return summary;
  };
  Check(summarize,
        {{"usual", "/dev/sda1 / ext4 rw,errors=remount-ro 0 0\n", "/dev/sda1|/|ext4|rw;"},
         {"escapes", "//a\\040b /t\\011a\\134b\\012c cifs ro 0 0\n", "//a b|/t\ta\\b\nc|cifs|ro;"},
         {"a back-slash that is no escape", "a\\04 /b\\ c ro,x 0 0", "a\\04|/b\\|c|ro;"},
         {"digits that are not octal", "a\\089 /b c rodeo 0 0", "a\\089|/b|c|rw;"},
         {"CR LF", "a /a t rw 0 0\r\nb /b t ro 0 0", "a|/a|t|rw;b|/b|t|ro;"},
         {"a part of the file system", "a /b c ro,sub=1,subvol=/@my\\040home,rw 0 0",
          "a|/b|c|ro/@my home;"},
         {"cut off before the options", "tmpfs /run tmpfs", ""}});
}

TEST(TextParsers, SelectedFileSystems) {
  std::string types =
      "nodev\tproc\nnodev\ttmpfs\nnodev\toverlay\nnodev\tfuse\nnodev\tdevtmpfs\n\tfuseblk\n";
  const auto select = [&types](const std::string& mounts) {
    std::string selected;
    for (const TFileSystemFacts& facts :
         SelectFileSystems(ParseMounts(mounts), ParseTypesWithoutDevice(types))) {
      selected += facts.mount.mountPoint + (facts.mayHang ? "? " : " ");
    }
    return selected;
  };
  Check(select, {{"the kernel's own data is left out",
                  "proc /proc proc rw 0 0\n/dev/sda1 / ext4 rw 0 0\nudev /dev devtmpfs rw 0 0\n"
                  "tmpfs /sys/fs/cgroup tmpfs ro 0 0\ntmpfs /system tmpfs rw 0 0\n",
                  "/ /system "},
                 {"the later of two at one place hides the earlier",
                  "/dev/sda1 /a ext4 rw 0 0\nproc /a proc rw 0 0\ntmpfs /b tmpfs rw 0 0\n"
                  "overlay /b overlay rw 0 0\n",
                  "/b "},
                 {"a device counts at each place",
                  "/dev/a / btrfs rw 0 0\n/dev/a /x btrfs rw 0 0\n", "/ /x "},
                 {"nothing waits for another computer or for a process",
                  "srv:/e /net nfs4 rw 0 0\n/dev/sdb1 /net/disk ext4 rw 0 0\n"
                  "/dev/sdc1 /nether ext4 rw 0 0\n/dev/sdd1 /win fuseblk rw 0 0\n"
                  "x /tool fuse.tool rw 0 0\ntmpfs /tool/tmp tmpfs rw 0 0\n",
                  "/net? /net/disk? /nether /win? /tool/tmp? "}});
  types.clear();
  Check(select, {{"the source decides", "p /p proc rw 0 0\nt/h /h zfs rw 0 0\n", "/h "}});
}

}  // namespace
}  // namespace NZELVYR20
