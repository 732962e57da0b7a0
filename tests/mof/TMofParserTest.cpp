#include "TMofParser.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <tuple>

#include "Cases.h"
#include "MofUnicode.h"
#include "TMofDiagnostics.h"

namespace NZELVYR20 {

template <class TDeclaration>
static std::string NameOf(const TDeclaration& declaration) {
  return declaration.name.GetText();
}
static std::string NameOf(const TMofClass& declared) {
  return declared.isUnreadable ? '(' + declared.name.GetText() + ')' : declared.name.GetText();
}
static std::string NameOf(const TMofInstanceRun& instances) {
  std::string names;
  for (const TMofInstance& one : instances) {
    names += (names.empty() ? "" : " ") + one.className.GetText();
  }
  return names;
}

/// The names of the declarations that a text holds, and then the messages, each on its own line.
static std::string Parse(const std::string& text) {
  std::string messages;
  TMofDiagnostics diagnostics({}, [&](const std::string& message) {
    messages += (messages.empty() ? "" : "\n") + message.substr(2);
  });
  const TMofSource source("t", text);
  std::string names;
  for (const auto& declaration : TMofParser(diagnostics).Parse(source)) {
    names += (names.empty() ? "" : " ") +
             std::visit([](const auto& one) { return NameOf(one); }, declaration);
  }
  return names + (names.empty() || messages.empty() ? "" : "\n") + messages;
}

/// Each message with the line and a caret; what was read before them.
TEST(TMofParserTest, SaysWhatIsWrongAndGoesOnWithTheNextDeclaration) {
  CheckCases("parser.txt", Parse);
}

/// Each would overflow the stack, or take hours, if its length mattered.
TEST(TMofParserTest, IsNotImpressedByLength) {
  const auto repeat = [](const std::string& text, std::size_t count) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
  };
  const std::tuple<std::string, std::size_t> rows[] = {
      {repeat("[", 1000000), 1},
      {"class A { a = " + repeat("{", 1000000), 1},
      {"class A { string a = \"" + repeat("\n/*", 500000), 2},
      {"class A { string a = \"" + repeat("x", 1000000) + "\"; };", 0},
      {"class A {};" + repeat("[\n", 500000), 1001},
      {repeat("class A ", 500000), 1},
  };
  for (const auto& [text, errors] : rows) {
    TMofDiagnostics diagnostics({}, [](const std::string& message) {
      EXPECT_LT(message.size(), 1000U) << message.substr(0, 1000);
    });
    const TMofSource source("t", text);
    TMofParser(diagnostics).Parse(source);
    EXPECT_EQ(diagnostics.GetErrorCount(), errors) << text.substr(0, 30);
  }
}

TEST(MofUnicodeTest, DecodesWhatFilesHold) {
  CheckCases("unicode.txt", [](const std::string& numbers) {
    std::string bytes;
    std::istringstream input(numbers);
    for (unsigned byte = 0; input >> std::hex >> byte;) bytes += static_cast<char>(byte);
    try {
      return DecodeMofText(bytes);
    } catch (const std::invalid_argument& error) {
      return std::string(error.what());
    }
  });
}

}  // namespace NZELVYR20
