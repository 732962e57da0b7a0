#include "Cases.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

namespace NZELVYR20 {

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string ReadData(const std::string& name) { return ReadFile(DATA_DIR "/" + name); }

void CheckCases(const std::string& name,
                const std::function<std::string(const std::string& given)>& run) {
  std::istringstream lines(ReadData(name));
  std::string given;
  std::string expected;
  int count = 0;
  for (bool isMore = true; isMore;) {
    std::string line;
    isMore = static_cast<bool>(std::getline(lines, line));
    std::string& text = line.compare(0, 2, "> ") == 0 ? expected : given;
    if (!line.empty()) text += (text.empty() ? "" : "\n") + line.substr(&text == &given ? 0 : 2);
    if (!line.empty() || given.empty()) continue;
    EXPECT_EQ(run(given), expected) << name << ": " << given;
    given.clear();
    expected.clear();
    ++count;
  }
  EXPECT_GT(count, 10) << name;
}

}  // namespace NZELVYR20
