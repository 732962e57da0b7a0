#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

#include "TMachineFolder.h"
#include "TSampleTree.h"

namespace NZELVYR20 {
namespace {

using TTexts = std::vector<std::string>;

TEST(Files, StayBelowTheirRoot) {
  const TSampleTree tree;
  tree.Write("/outside", "outside");
  tree.Write("/root/file", "inside");
  tree.Write("/root/folder/deep/", "");
  ASSERT_EQ(0, mkfifo((tree.GetRoot() + "/root/fifo").c_str(), 0600));
  tree.Write("/root/long", std::string(5000, 'x'));
  tree.Write("/root/huge", "");
  std::filesystem::resize_file(tree.GetRoot() + "/root/huge", std::uintmax_t{1} << 40);
  const std::pair<const char*, std::string> links[] = {{"absolute", "/file"},
                                                       {"relative", "folder/../file"},
                                                       {"up", "../../../../file"},
                                                       {"chain", "absolute"},
                                                       {"folder/deep/far", "../../up"},
                                                       {"place", "/folder"},
                                                       {"out", tree.GetRoot() + "/outside"},
                                                       {"loop", "loop"},
                                                       {"device", "/dev/zero"},
                                                       {"slash", "/"},
                                                       {"tofifo", "fifo"}};
  for (const auto& [name, target] : links) {
    std::filesystem::create_symlink(target, tree.GetRoot() + "/root/" + name);
  }
  const std::pair<const char*, const char*> rows[] = {
      {"/file", "inside"},
      {"/absolute", "inside"},
      {"/relative", "inside"},
      {"/up", "inside"},
      {"/chain", "inside"},
      {"/place/deep/far", "inside"},
      {"/slash/slash/./place/../file", "inside"},
      {"/../outside", "No such file or directory"},
      {"/out", "No such file or directory"},
      {"/device", "No such file or directory"},
      {"/loop", "Too many levels of symbolic links"},
      {"/file/below", "Not a directory"},
      {"/slash", "Not a regular file"},
      {"/tofifo", "Not a regular file"},
      {"/huge", "File too large"}};
  for (const auto follow : {TRootFolder::kByKernel, TRootFolder::kByWalk}) {
    const TMachineFiles files(tree.GetRoot() + "/root", follow);
    std::string why;
    for (const auto& [path, expected] : rows) {
      EXPECT_EQ(expected, files.Read(path, why).value_or(why)) << path;
      EXPECT_EQ(expected == std::string("inside") ? "inside" : "", files.ReadValue(path));
    }
    EXPECT_FALSE(TMachineFolder(files, "/tofifo").IsThere());
    const TMachineFolder root(files, "/slash");
    EXPECT_EQ((TTexts{"deep"}), root.Enter("place").GetNames());
    for (const char* name : {"file", "absolute", "up", "chain", "out", "loop", "fifo", "place"}) {
      EXPECT_EQ(files.ReadValue(std::string("/") + name), root.ReadValue(name)) << name;
    }
    EXPECT_EQ(5000U, root.ReadValue("long").size());
    EXPECT_TRUE(root.HasFolder("place") && root.HasFolder("folder") && !root.HasFolder("chain"));
    EXPECT_TRUE(files.IsFolder("/slash/../place") && !files.IsFolder("/chain"));
    EXPECT_EQ("outside", files.ReadLinkName("/slash/out"));
    EXPECT_EQ("", files.ReadLinkName("/file"));
  }
}

}  // namespace
}  // namespace NZELVYR20
