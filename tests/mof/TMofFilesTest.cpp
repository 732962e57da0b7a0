#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "TLoadedMof.h"

namespace NZELVYR20 {
namespace {

namespace fs = std::filesystem;

/// A folder of files that goes when the test ends.
class TMofFilesTest : public testing::Test {
 protected:
  TMofFilesTest()
      : folder_(fs::temp_directory_path() /
                ("vyr-mof-" + std::to_string(::getpid()) + "-" +
                 testing::UnitTest::GetInstance()->current_test_info()->name())) {
    fs::create_directories(folder_);
  }
  ~TMofFilesTest() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  std::string Put(const std::string& name, const std::string& bytes) const {
    const fs::path path = folder_ / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }
  std::string At(const std::string& name) const { return (folder_ / name).string(); }

  /// The messages of loading a file, with the folder taken out of them.
  std::string Load(TLoadedMof& mof, const std::string& path) const {
    std::string messages = mof.LoadFile(path).TakeMessages();
    const std::string folder = folder_.string() + "/";
    for (std::size_t at = messages.find(folder); at != std::string::npos;
         at = messages.find(folder))
      messages.erase(at, folder.size());
    return messages;
  }

  const fs::path folder_;
};

TEST_F(TMofFilesTest, IncludesStandBesideTheFileOrInTheSearchPath) {
  Put("main/start.mof",
      "#pragma include (\"part/a.mof\")\n"
      "#pragma include (\"part\\\\b.mof\")\n"
      "#pragma include (\"far.mof\")\n"
      "#pragma include (\"part/../part/a.mof\")\n"
      "#pragma locale (\"en_US\")\n");
  Put("main/part/a.mof", "#pragma include (\"c.mof\")\nclass A : C { };");
  Put("main/part/b.mof", "class B : A { };");
  Put("main/part/c.mof", "class C { [Key] string Id; };");
  Put("search/far.mof", "class F : C { };");
  TMofOptions options;
  options.searchPath = {At("nowhere"), At("search")};
  TLoadedMof mof("", options);
  EXPECT_EQ(Load(mof, At("main/start.mof")),
            "main/start.mof:2:18: note: the path has back-slashes; they are read as slashes\n"
            "main/start.mof:4:18: note: the file main/part/../part/a.mof was read already\n"
            "main/start.mof:5:9: note: the directive locale has no effect here");
  EXPECT_TRUE(mof.Has("B") && mof.Has("F"));
}

TEST_F(TMofFilesTest, MissingClassesAreSearched) {
  Put("search/Area/Top.mof", "class Top { [Key] string Id; };");
  Put("search/Middle.mof", "class Middle : Top { };");
  Put("search/Link.mof", "[Association] class Link { [Key] Middle REF Left; };");
  TMofOptions options;
  options.searchPath = {At("search")};
  TLoadedMof mof(
      "class Low : Middle { };\ninstance of Link { Left = \"Low.Id=\\\"1\\\"\"; };\n"
      "instance of Low { Id = \"1\"; };",
      options);
  EXPECT_EQ(mof.TakeMessages(), "");
  EXPECT_TRUE(mof.HasInstance("Link.Left=\"Low.Id=\\\"1\\\"\""));
}

TEST_F(TMofFilesTest, AFolderStandsForItsFiles) {
  Put("mof/b.mof", "class B : A { };");
  Put("mof/a.mof", "class A { [Key] string Id; };");
  Put("mof/readme.txt", "no MOF");
  TLoadedMof mof;
  EXPECT_EQ(Load(mof, At("mof")), "");
  EXPECT_TRUE(mof.Has("B"));
}

/// Each is one clear message, and nothing of the file is in the namespace.
TEST_F(TMofFilesTest, FilesThatCannotBeReadAreOneError) {
  fs::create_directories(folder_ / "empty");
  fs::create_directories(folder_ / "folder.mof");
  Put("nothing.mof", "");
  Put("missing.mof", "#pragma include (\"gone.mof\")");
  Put("self.mof", "#pragma include (\"other.mof\")");
  Put("other.mof", "#pragma include (\"self.mof\")");
  Put("one.mof", "#pragma include (\"two.mof\")");
  Put("two.mof", "#pragma include (\"three.mof\")");
  Put("three.mof", "#pragma include (\"four.mof\")");
  Put("four.mof", "");
  Put("large.mof", std::string(2000, ' '));
  Put("binary.mof", std::string("class \0 A", 9));
  Put("latin.mof", "// caf\xE9\n");
  Put("half.mof",
      "\xFF\xFE"
      "c");
  Put("includes-folder.mof", "#pragma include (\"folder.mof\")");
  Put("includes-large.mof", "#pragma include (\"large.mof\")");
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"nothing.mof", "nothing.mof: error: The file is empty"},
      {"gone.mof", "gone.mof: error: No such file or directory"},
      {"empty", "empty: error: The folder has no *.mof file"},
      {"missing.mof",
       "missing.mof:1:18: error: there is no file gone.mof, neither beside this one nor in the "
       "search path"},
      {"self.mof", "other.mof:1:18: error: the file self.mof includes itself"},
      {"one.mof", "three.mof:1:18: error: more than 3 files include each other"},
      {"large.mof", "large.mof: error: The file is larger than the limit of 1000 bytes"},
      {"includes-folder.mof",
       "includes-folder.mof:1:18: error: there is no file folder.mof, neither beside this one nor "
       "in the search path"},
      {"includes-large.mof",
       "includes-large.mof:1:18: error: cannot include large.mof: The file is larger than the "
       "limit "
       "of 1000 bytes"},
  };
  TMofOptions options;
  options.deepestInclude = 3;
  options.largestFile = 1000;
  for (const auto& [name, message] : rows) {
    TLoadedMof mof("", options);
    EXPECT_EQ(Load(mof, At(name)), message);
    EXPECT_EQ(mof.GetSummary().errors, 1U);
  }
  for (const char* const name : {"binary.mof", "latin.mof", "half.mof"}) {
    TLoadedMof mof;
    const std::string message = Load(mof, At(name));
    EXPECT_EQ(message.find(std::string(name) + ": error: "), 0U) << message;
    EXPECT_EQ(mof.GetSummary().errors, 1U);
  }
}

}  // namespace
}  // namespace NZELVYR20
