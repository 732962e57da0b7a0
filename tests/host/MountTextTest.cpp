#include "MountText.h"

#include <gtest/gtest.h>

namespace NZELVYR20 {
namespace {

TEST(MountText, Lines) {
  const struct {
    const char* description;
    std::string text;
    std::vector<std::string> fields;  ///< source, mount point, type of the last mount; or empty
    bool isReadOnly;
  } rows[] = {
      {"usual",
       "/dev/sda1 / ext4 rw,relatime,errors=remount-ro 0 0\n",
       {"/dev/sda1", "/", "ext4"},
       false},
      {"escapes",
       "//srv/a\\040b /mnt/t\\011a\\134b\\012c cifs ro 0 0\n",
       {"//srv/a b", "/mnt/t\ta\\b\nc", "cifs"},
       true},
      {"a back-slash that is no escape", "a\\04 /b\\ c ro,x 0 0", {"a\\04", "/b\\", "c"}, true},
      {"digits that are not octal", "a\\089 /b c rodeo 0 0", {"a\\089", "/b", "c"}, false},
      {"CR LF and no line end", "a /a t rw 0 0\r\nb /b t ro 0 0", {"b", "/b", "t"}, true},
      {"cut off before the options", "tmpfs /run tmpfs", {}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const std::vector<TMount> mounts = ParseMounts(row.text);
    ASSERT_EQ(row.fields.empty(), mounts.empty());
    if (mounts.empty()) continue;
    const TMount& last = mounts.back();
    EXPECT_EQ(row.fields, (std::vector<std::string>{last.source, last.mountPoint, last.type}));
    EXPECT_EQ(row.isReadOnly, last.isReadOnly);
  }
}

/// The selected mount points in order; "?" marks those that may hang.
std::string Select(const std::string& mounts, const std::string& types) {
  std::string selected;
  for (const TFileSystemFacts& facts :
       SelectFileSystems(ParseMounts(mounts), ParseTypesWithoutDevice(types)))
    selected += facts.mount.mountPoint + (facts.mayHang ? "? " : " ");
  return selected;
}

TEST(MountText, Selection) {
  const std::string types =
      "nodev\tproc\nnodev\ttmpfs\nnodev\toverlay\nnodev\tdevtmpfs\nnodev\tfuse\nnodev\tautofs\n"
      "\text4\n\tfuseblk\n";
  const struct {
    const char* description;
    std::string mounts;
    std::string types;
    std::string selected;
  } rows[] = {
      {"the kernel's own data is left out",
       "proc /proc proc rw 0 0\n/dev/sda1 / ext4 rw 0 0\nudev /dev devtmpfs rw 0 0\n"
       "tmpfs /run tmpfs rw 0 0\ntmpfs /sys/fs/cgroup tmpfs ro 0 0\ntmpfs /system tmpfs rw 0 0\n",
       types, "/ /run /system "},
      {"the later of two at one place hides the earlier",
       "/dev/sda1 /a ext4 rw 0 0\nproc /a proc rw 0 0\ntmpfs /b tmpfs rw 0 0\n"
       "overlay /b overlay rw 0 0\n",
       types, "/b "},
      {"a device counts once, memory each time",
       "/dev/sda1 / ext4 rw 0 0\n/dev/sda1 /etc/hosts ext4 rw 0 0\ntmpfs /x tmpfs rw 0 0\n"
       "tmpfs /y tmpfs rw 0 0\n",
       types, "/ /x /y "},
      {"nothing waits for another computer or for a process",
       "/dev/sda1 / ext4 rw 0 0\nsrv:/e /net nfs4 rw 0 0\n/dev/sdb1 /net/disk ext4 rw 0 0\n"
       "/dev/sdc1 /nether ext4 rw 0 0\n/dev/sdd1 /win fuseblk rw 0 0\nx /tool fuse.tool rw 0 0\n"
       "tmpfs /tool/tmp tmpfs rw 0 0\n",
       types, "/ /net? /net/disk? /nether /win? /tool/tmp? "},
      {"without a list of types the source decides",
       "/dev/sda1 / ext4 rw 0 0\nproc /p proc rw 0 0\ntank/home /home zfs rw 0 0\n", "",
       "/ /home "},
  };
  for (const auto& row : rows)
    EXPECT_EQ(row.selected, Select(row.mounts, row.types)) << row.description;
}

}  // namespace
}  // namespace NZELVYR20
