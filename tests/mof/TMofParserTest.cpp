#include "TMofParser.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "MofUnicode.h"
#include "TMofDiagnostics.h"

namespace NZELVYR20 {

template <class TDeclaration>
static std::string NameOf(const TDeclaration& declaration) {
  return declaration.name.text;
}
static std::string NameOf(const TMofInstance& instance) { return instance.className.text; }

/// The names of the declarations that a text holds, and then the messages, each on its own lines.
static std::string Parse(const std::string& text, const TMofOptions& options = {}) {
  std::string messages;
  TMofDiagnostics diagnostics(options,
                              [&](const std::string& message) { messages += '\n' + message; });
  const TMofSource source("t", text);
  std::string names;
  try {
    for (const auto& declaration : TMofParser(diagnostics).Parse(source)) {
      names += std::visit([](const auto& one) { return NameOf(one); }, declaration) + ' ';
    }
  } catch (const TMofStrictStop&) {
    names = "stopped";
  }
  return names + messages;
}

TEST(TMofParserTest, SaysWhatIsWrong) {
  const std::tuple<const char*, const char*> rows[] = {
      {"class A {\n\tuint8 x string y;\n};",
       "\nt:2:10: error: expected \";\" behind a property, found \"string\"\n\tuint8 x string y;"
       "\n\t        ^"},
      {"x",
       "\nt:1:1: error: expected a class, an instance, the declaration of a qualifier or a "
       "directive, found \"x\"\nx\n^"},
      {"[Key",
       "\nt:1:5: error: expected \",\" or \"]\" behind a qualifier, found the end of the "
       "text\n[Key\n    ^"},
      {"[Key] Qualifier X",
       "\nt:1:7: error: expected \"class\" or \"instance\" behind "
       "qualifiers, found \"Qualifier\"\n[Key] Qualifier X\n      ^"},
      {"class A { uint9 x; };",
       "\nt:1:11: error: unknown type \"uint9\"\nclass A { uint9 x; };\n          ^"},
      {"class A { void x; };",
       "\nt:1:11: error: only a method can be void\nclass A { void x; };\n          ^"},
      {"class A { void m(void p); };",
       "\nt:1:18: error: only a method can be void\nclass A { void m(void p); };\n                 "
       "^"},
      {"class A { uint8 x[18446744073709551616]; };",
       "\nt:1:19: error: \"18446744073709551616\" does not fit into 64 bits\n"
       "class A { uint8 x[18446744073709551616]; };\n                  ^"},
      {"class A { B REF[] x[]; };",
       "\nt:1:20: error: there are no arrays of arrays\nclass A { B REF[] x[]; };\n"
       "                   ^"},
      {"class A { \xC3\x89 x; };",
       "\nt:1:11: error: expected a property, a method or \"}\", found "
       "\"\xC3\x89\"\nclass A { \xC3\x89 x; };\n          ^"},
      {"instance of A { a = \"x;\n};",
       "\nt:1:21: error: this text never ends\ninstance of A { a = \"x;\n                    ^"},
      {"/* a */ /* b", "\nt:1:9: error: this comment never ends\n/* a */ /* b\n        ^"},
      {"class A {} x",
       "A \nt:1:10: note: there is no \";\" behind this \"}\"\nclass A {} x"
       "\n         ^\nt:1:12: error: expected a class, an instance, the "
       "declaration of a qualifier or a directive, found \"x\"\nclass A {} x\n"
       "           ^"},
      {"Qualifier A:string, Scope(any, x);",
       "A \nt:1:32: warning: unknown scope \"x\"\n"
       "Qualifier A:string, Scope(any, x);\n                               ^"},
  };
  for (const auto& [text, messages] : rows) EXPECT_EQ(Parse(text), messages);
}

TEST(TMofParserTest, SaysWhatIsWrongWithValues) {
  const std::tuple<const char*, const char*> rows[] = {
      {"08", "1: error: \"08\" is no"},
      {"0x", "1: error: \"0x\" is no"},
      {"12b", "1: error: \"12b\" is no"},
      {"1.", "1: error: \"1.\" is no"},
      {"18446744073709551616", "1: error: \"18446744073709551616\" does not fit"},
      {"-9223372036854775809", "1: error: \"-9223372036854775809\" does not fit"},
      {"word", "1: error: expected a value, found \"word\""},
      {"{1 2}", "4: error: expected \",\" or \"}\" behind a value, found \"2\""},
      {"{{", "2: error: expected a value or \"}\", found \"{\""},
      {"''", "2: error: expected a character between the apostrophes"},
      {"'ab'", "3: error: expected an apostrophe behind one character, found \"b\""},
      {"'\\q'", "3: error: expected an escape that MOF knows"},
      {"'\xF0\x9F\x98\x80'", "2: error: a char16 cannot hold"},
      {R"("a\x0000")", "3: error: a text cannot hold the NUL"},
      {R"("C:\q")", "4: warning: unknown escape"},
      {R"("\xDE00\xD83D")", "2: warning: half of a pair"},
      {R"("root\cimv2")", "6: note: a back-slash"},
  };
  for (const auto& [text, message] : rows) {
    const std::string shown = Parse("instance of A{a=\n" + std::string(text) + ";};");
    EXPECT_NE(shown.find("\nt:2:" + std::string(message)), std::string::npos) << shown;
  }
}

TEST(TMofParserTest, GoesOnWithTheNextDeclaration) {
  const std::tuple<const char*, const char*, int> rows[] = {
      {"class A { uint8 a[] = {1;}; uint8 b; }; class B{};", "B ", 1},
      {"class A B {uint8 a;}; class B{};", "B ", 1},
      {"Qualifier A; class B{};", "B ", 1},
      {"some prose; more of it\n[Key]\nclass B{};", "B ", 2},
      {"class A { uint8 a\nclass B{};\nclass C{};", "B C ", 1},
      {"class A {\nclass B{};", "B ", 1},
      {"Qualifier A : string\n#pragma x\ninstance  of B{};", "x B ", 1},
      {"class A { string a = 1 \"};\"; }; /* }; */ class B{};", "B ", 1},
      {"class A { string a = \"x; };\nclass B { string b = \"y\"; };\nclass C {};", "C ", 1},
      {"x /* ; */ // ;\n/* class\nclass A{}; */\nclass B{};", "B ", 1},
      {"x\n/*", "", 2},
      {"class A { x\n\"\\", "", 1},
      {"x;x;x;x;class B{};x", "B ", 5},
      {"class A { [Key", "", 1},
  };
  for (const auto& [text, names, errors] : rows) {
    const std::string shown = Parse(text);
    EXPECT_EQ(shown.substr(0, shown.find('\n')), names) << text;
    int count = 0;
    for (auto at = shown.find(": error: "); at != std::string::npos; ++count)
      at = shown.find(": error: ", at + 1);
    EXPECT_EQ(count, errors) << text;
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
      {repeat("[\n", 500000), 1001},
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

TEST(TMofParserTest, StopsAtTheFirstDoubtWhereItIsStrict) {
  TMofOptions options;
  options.isStrict = true;
  const std::string shown = Parse("instance of A{a=\"\\q\\q\";}; x", options);
  EXPECT_EQ(shown.substr(0, 44), "stopped\nt:1:18: error: unknown escape; the b");
}

TEST(MofUnicodeTest, DecodesWhatFilesHold) {
  using namespace std::string_literals;
  const std::tuple<std::string, std::string> rows[] = {
      {"", ""},
      {"a\r\n\xC3\xA9", "a\r\n\xC3\xA9"},
      {"\xEF\xBB\xBFz", "z"},
      {"\xFF\xFEz\0\x3D\xD8\x00\xDE"s, "z\xF0\x9F\x98\x80"},
      {"\xFE\xFF\0z\x20\xAC"s, "z\xE2\x82\xAC"},
      {"a\xFF", "not UTF-8: there is no character at byte 2"},
      {"\xC0\x80", "not UTF-8: there is no character at byte 1"},
      {"ab\xED\xA0\x80", "not UTF-8: there is no character at byte 3"},
      {"ab\xE2\x82", "not UTF-8: there is no character at byte 3"},
      {"z\0"s, "not a text: there is a NUL at byte 2"},
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
