#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <filesystem>

#include "PackageText.h"
#include "THostNamespace.h"
#include "TSampleTree.h"

namespace NZELVYR20 {
namespace {

using TTexts = std::vector<std::string>;

std::string Number(std::uint32_t number) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(number >> shift);
  return bytes;
}

struct TTag {
  std::uint32_t tag;
  std::uint32_t type;
  std::string data;
};

std::string BuildHeader(const std::vector<TTag>& tags) {
  // The first says where the others end, by an offset that is none.
  std::string entries = Number(63) + Number(7) + Number(0xffffff00) + Number(16);
  std::string data;
  for (const TTag& tag : tags) {
    entries += Number(tag.tag) + Number(tag.type) +
               Number(static_cast<std::uint32_t>(data.size())) + Number(1);
    data += tag.data;
  }
  return Number(static_cast<std::uint32_t>(tags.size() + 1)) +
         Number(static_cast<std::uint32_t>(data.size())) + entries + data;
}

std::string BuildPackage(const std::string& name, const std::string& version) {
  using namespace std::string_literals;
  return BuildHeader({{1003, 4, Number(2)},
                      {1000, 6, name + '\0'},
                      {1001, 6, version + '\0'},
                      {1002, 6, "4.el9\0"s},
                      {1004, 9, "The tool\0Das Werkzeug\0"s},
                      {1011, 6, "Packers\0"s},
                      {1022, 6, "noarch\0"s}});
}

std::string ShowPackage(const std::string& header) {
  const auto package = ParseRpmHeader(header);
  return package ? package->name + '|' + package->version + '|' + package->architecture + '|' +
                       package->maintainer + '|' + package->summary
                 : "-";
}

TEST(RpmHeader, WholeDamagedAndOdd) {
  const std::string whole = BuildPackage("tool", "1.2");
  EXPECT_EQ("tool|2:1.2-4.el9|noarch|Packers|The tool", ShowPackage(whole));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ("-", ShowPackage(whole.substr(0, size))) << size;
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0xff);
    ShowPackage(damaged);  // for the sanitizers
  }
  EXPECT_EQ("-", ShowPackage(BuildPackage("gpg-pubkey", "1")));
  EXPECT_EQ("-", ShowPackage(BuildHeader({})));
  EXPECT_EQ("-", ShowPackage(BuildHeader({{1000, 6, "without end"}})));
  EXPECT_EQ(
      "a|-|||",
      ShowPackage(BuildHeader({{1000, 6, {'a', 0}}, {1001, 8, {'b', 0}}, {1003, 6, {'c', 0}}})));
}

void Execute(sqlite3* database, const std::string& statement) {
  EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr));
}

void WriteDatabase(const std::string& path, const TTexts& headers) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  sqlite3* database = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(path.c_str(), &database));
  Execute(database, "PRAGMA journal_mode = WAL");
  Execute(database, "CREATE TABLE Packages (hnum INTEGER PRIMARY KEY, blob BLOB NOT NULL)");
  for (const std::string& header : headers) {
    std::string digits;
    for (const char byte : header) {
      constexpr const char* kDigits = "0123456789abcdef";
      digits += kDigits[static_cast<unsigned char>(byte) >> 4U];
      digits += kDigits[static_cast<unsigned char>(byte) & 15U];
    }
    Execute(database, "INSERT INTO Packages(blob) VALUES (x'" + digits + "')");
  }
  sqlite3_close(database);
}

TEST(RpmDatabase, IsReadBelowTheRoot) {
  const TSampleTree tree;
  const std::string folder = tree.GetRoot() + "/usr/lib/sysimage/rpm";
  WriteDatabase(folder + "/rpmdb.sqlite",
                {BuildPackage("tool", "1"), "damaged", BuildPackage("kernel", "6.1"),
                 BuildPackage("kernel", "6.2")});
  const THostNamespace host(tree.GetRoot(), {false, true});
  EXPECT_EQ((TTexts{"CIM_SoftwareIdentity.InstanceID=\"rpm:kernel:noarch:2:6.1-4.el9\"",
                    "CIM_SoftwareIdentity.InstanceID=\"rpm:kernel:noarch:2:6.2-4.el9\"",
                    "CIM_SoftwareIdentity.InstanceID=\"rpm:tool:noarch\""}),
            host.ListPaths("CIM_SoftwareIdentity"));
  const TTexts& noted = host.GetNoted();
  EXPECT_EQ(0, std::count(noted.begin(), noted.end(), "/var/lib/dpkg/status"));
  EXPECT_FALSE(std::filesystem::exists(folder + "/rpmdb.sqlite-shm"));
}

TEST(RpmDatabase, ANoteForWhatIsNotRead) {
  for (const char* path : {"/var/lib/rpm/rpmdb.sqlite", "/var/lib/rpm/rpmdb.sqlite/",
                           "/usr/lib/sysimage/rpm/Packages.db", "/var/lib/rpm/Packages"}) {
    const TSampleTree tree;
    tree.Write(path, "no database");
    const std::string last = THostNamespace(tree.GetRoot(), {false, true}).GetNoted().at(4);
    EXPECT_EQ(0U, std::string(path).find(last)) << last;
  }
  const TSampleTree tree;
  tree.Write("/var/lib/rpm/", "");
  ASSERT_EQ(0, mkfifo((tree.GetRoot() + "/var/lib/rpm/rpmdb.sqlite").c_str(), 0600));
  EXPECT_EQ("/var/lib/rpm/rpmdb.sqlite",
            THostNamespace(tree.GetRoot(), {false, true}).GetNoted().at(4));
}

}  // namespace
}  // namespace NZELVYR20
