#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include <boost/algorithm/string.hpp>

#include "Cases.h"
#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

struct Completion : testing::TestWithParam<const char*>, TVyrhost {};

/// As a shell asks for it: a line that ends at the cursor.
TEST_P(Completion, OffersWhatMayFollow) {
  const std::string shell = GetParam();
  if (std::system(("command -v " + shell + " >/dev/null").c_str()) != 0) GTEST_SKIP();
  Write("etc/os-release", "NAME='Test (7) \"&\"'\n");
  Write("sys/bus/pci/devices/0000:00:1f.0/vendor", "0x1af4");
  // A device and its controller of pictures have one name.
  Write("sys/bus/pci/devices/0000:00:02.0/class", "0x030000");
  const std::string completion =
      COMPLETION_DIR + std::string(shell == "zsh" ? "/_vyrhost" : "/vyrhost.bash");
  CheckCases("completion.txt", [&](const std::string& given) {
    std::string line = "--root " + GetRoot() + ' ' + given.substr(0, given.rfind('|'));
    boost::replace_all(line, "$data", DATA_DIR);
    boost::replace_all(line, "'", "'\\''");
    const std::string offered = GetRoot() + "/offered";
    const std::string command = shell + " '" DATA_DIR "/complete." + shell +
                                "' '" VYRHOST_PATH "' '" + completion + "' '" + line + "' >" +
                                offered;
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return boost::trim_right_copy(boost::replace_all_copy(ReadFile(offered), DATA_DIR, "$data"));
  });
}

INSTANTIATE_TEST_SUITE_P(Shells, Completion, testing::Values("bash", "zsh"));

}  // namespace
}  // namespace NZELVYR20
