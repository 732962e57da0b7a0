#include <gtest/gtest.h>

#include <string>

#include "TTreeLines.h"

namespace NZELVYR20 {
namespace {

std::string Draw(const TTerminal& terminal) {
  std::string text;
  DrawTreeLines(
      {{0, "top"}, {1, "one"}, {2, "öäüöä"}, {2, "öäüöäü"}, {1, "日本語日本語"}, {0, "next"}},
      terminal, [&text](const std::string& line) { text += line; });
  return text;
}

TEST(TreeLinesTest, FitTheTerminalAndItsLetters) {
  EXPECT_EQ(Draw({true, 13, false}),
            "top\n|-- one\n|   |-- öäüöä\n|   `-- öä...\n`-- 日本語...\nnext\n");
  EXPECT_EQ(Draw({true, 13, true}),
            "top\n├── one\n│   ├── öäüöä\n│   └── öäüö…\n└── 日本語日…\nnext\n");
  EXPECT_EQ(Draw({false, 13, false}),
            "top\n├── one\n│   ├── öäüöä\n│   └── öäüöäü\n└── 日本語日本語\nnext\n");
  EXPECT_EQ(Draw({true, 1, false}), "...\n...\n...\n...\n...\n...\n");
}

}  // namespace
}  // namespace NZELVYR20
