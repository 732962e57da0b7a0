#include "TMofParser.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "Cases.h"
#include "MofUnicode.h"
#include "TMofDiagnostics.h"

namespace NZELVYR20 {

template <class TDeclaration>
static std::string NameOf(const TDeclaration& declaration) {
  return declaration.name.text;
}
static std::string NameOf(const TMofClass& declared) {
  return declared.isUnreadable ? '(' + declared.name.text + ')' : declared.name.text;
}
static std::string NameOf(const TMofInstance& instance) { return instance.className.text; }

/// The names of the declarations that a text holds, and then the messages, each on its own line.
static std::string Parse(const std::string& text) {
  std::string messages;
  TMofDiagnostics diagnostics({}, [&](const std::string& message) {
    messages += (messages.empty() ? "" : "\n") + message.substr(2, message.find('\n') - 2);
  });
  const TMofSource source("t", text);
  std::string names;
  for (const auto& declaration : TMofParser(diagnostics).Parse(source)) {
    names += (names.empty() ? "" : " ") +
             std::visit([](const auto& one) { return NameOf(one); }, declaration);
  }
  return names + (names.empty() || messages.empty() ? "" : "\n") + messages;
}

/// The first line of each message; what was read before them.
TEST(TMofParserTest, SaysWhatIsWrongAndGoesOnWithTheNextDeclaration) {
  CheckCases("parser.txt", Parse);
}

TEST(TMofParserTest, ShowsTheLineAndThePlace) {
  const std::tuple<const char*, const char*> rows[] = {
      {"class A {\n\tuint8 x string y;\r\n};", "\tuint8 x string y;\n\t        ^"},
      {"class A { \xC3\x89 x; };", "class A { \xC3\x89 x; };\n          ^"},
      {"#pragma x\n/* \xC3\x89 */ [Key", "/* \xC3\x89 */ [Key\n            ^"},
  };
  for (const auto& [text, excerpt] : rows) {
    std::string shown;
    TMofDiagnostics diagnostics({}, [&shown](const std::string& message) {
      shown += message.substr(message.find('\n') + 1);
    });
    const TMofSource source("t", text);
    TMofParser(diagnostics).Parse(source);
    EXPECT_EQ(shown, excerpt);
  }
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
      {repeat("[\n", 500000), 1},
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
  using namespace std::string_literals;
  const std::tuple<std::string, std::string> rows[] = {
      {"", ""},
      {"a\r\n\xC3\xA9", "a\r\n\xC3\xA9"},
      {"\xEF\xBB\xBFz", "z"},
      {"\xFF\xFEz\0\x3D\xD8\x00\xDE"s, "z\xF0\x9F\x98\x80"},
      {"\xFE\xFF\0z\x20\xAC"s, "z\xE2\x82\xAC"},
      {"\r\xC3\xA9\xFF", "not UTF-8: there is no character at line 2, column 2"},
      {"\xC0\x80", "not UTF-8: there is no character at line 1, column 1"},
      {"ab\xED\xA0\x80", "not UTF-8: there is no character at line 1, column 3"},
      {"ab\xE2\x82", "not UTF-8: there is no character at line 1, column 3"},
      {"z\0"s, "not a text: there is a NUL at line 1, column 2"},
      {"\xFF\xFE\0\0"s, "not a text: there is a NUL at byte 3"},
      {"\xFF\xFEz\0z"s, "not UTF-16: half a character at byte 5"},
      {"\xFF\xFEz\0\x3D\xD8z\0"s, "not UTF-16: half of a pair of surrogates at byte 5"},
  };
  for (const auto& [bytes, expected] : rows) {
    std::string text;
    try {
      text = DecodeMofText(bytes);
    } catch (const std::invalid_argument& error) {
      text = error.what();
    }
    EXPECT_EQ(text, expected);
  }
}

}  // namespace NZELVYR20
