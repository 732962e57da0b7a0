#include <gtest/gtest.h>

#include <filesystem>

#include "THostNamespace.h"
#include "TSampleTree.h"

namespace NZELVYR20 {
namespace {

TEST(Services, OnlyWhereSystemdRunsThem) {
  const TSampleTree tree;
  tree.Write("/usr/lib/systemd/system/one.service", "[Unit]\n");
  EXPECT_EQ(0U, THostNamespace(tree.GetRoot()).ListPaths("CIM_Service").size());
  tree.Write("/run/systemd/system/", "");
  EXPECT_EQ(1U, THostNamespace(tree.GetRoot()).ListPaths("CIM_Service").size());
}

TEST(Services, OddPlaces) {
  const TSampleTree tree;
  tree.Write("/run/systemd/system/", "");
  tree.Write("/etc/systemd/system/folder.service/x", "");
  tree.Write("/etc/systemd/system/file.wants", "");
  tree.Write("/run/systemd/units/invocation:", "");
  tree.Write("/run/systemd/units/one.service", "");
  // A tree that leads into itself comes to an end.
  const std::string groups = tree.GetRoot() + "/sys/fs/cgroup";
  tree.Write("/sys/fs/cgroup/two.service/", "");
  std::filesystem::create_directory_symlink(groups, groups + "/a.slice");
  std::filesystem::create_directory_symlink(groups, groups + "/b.slice");
  const THostNamespace host(tree.GetRoot());
  EXPECT_EQ(2U, host.ListPaths("CIM_Service").size());
  for (const std::string& path : host.ListPaths("CIM_Service")) {
    EXPECT_TRUE(path.find("folder") != std::string::npos || path.find("two") != std::string::npos);
  }
}

}  // namespace
}  // namespace NZELVYR20
