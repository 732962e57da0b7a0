#include "TMofParser.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "MofUnicode.h"
#include "TSyntaxText.h"

namespace NZELVYR20 {

TEST(TMofParserTest, ReadsDeclarations) {
  const std::tuple<const char*, const char*> rows[] = {
      {"", ""},
      {" // nothing\r\n/* at * all */;;", ""},
      {R"(#pragma include ("a\\b.mof") # PRAGMA Locale("en" "_US")#pragma autorecover)",
       R"(#include|a\b.mof| #Locale|en_US| #autorecover||)"},
      {R"(#pragma other("a", "b", c))", "#other|a|"},
      {"Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);",
       "qualifier 1:Key=bool 0 (property,reference)(DisableOverride)"},
      {"qualifier Values:string[];Qualifier Q : uint8[3] = {1, 2}, Flavor(ToSubclass);",
       "qualifier 29:Values ()() qualifier 18:[3]Q={1 2} ()(ToSubclass)"},
      {"class A{};CLASS B as $X:A{} ; class C", "class A{} class B<A{}"},
      {R"([Abstract, Description("x"):ToSubclass Translatable, Max(5), V{"a","b"}:Restricted]
          class A { [Key] string Name; };)",
       "[Abstract Description=|x|:ToSubclass,Translatable Max=5 V={|a| |b|}:Restricted]"
       "class A{[Key]13:Name}"},
      {"class A { uint8 a[]; uint8 b[5] = {}; sint8[] c; char16 d = 'x'; B REF e; B ref f[2]; };",
       "class A{18:a; 18:[5]b={}; 19:c; 12:d=char 120; 15:Be; 31:B[2]f}"},
      {"class A { void m(); uint32[] n([In] string s, [In(false), Out] A ref r[]); A REF o(); };",
       "class A{0:m(); 22:n([In]13:s, [In=bool 0 Out]31:Ar); 15:Ao()}"},
      {"class Class { [Class, Ref, Key(null)] uint8 Ref; Ref ref Instance; uint8 true; };",
       "class Class{[Class Ref Key=null]2:Ref; 15:RefInstance; 2:true}"},
      {R"([X]instance of A as $a { B = "x"; [Q] C = $b; D = { $a, null, "y", }; };)",
       "[]instance A $a{B=|x|; []C=$b; D={$a null |y|}}"},
      {"instance of As as $as{};", "instance As $as{}"},
  };
  for (const auto& [text, tree] : rows) {
    const std::string shown = TSyntaxText::Parse(text);
    EXPECT_EQ(shown.substr(0, shown.find('\n')), tree) << text;
  }
}

TEST(TMofParserTest, ReadsValues) {
  const std::tuple<const char*, const char*> rows[] = {
      {"1", "1"},
      {"-0", "0"},
      {"+017", "15"},
      {"0xfF", "255"},
      {"-101B", "-5"},
      {"18446744073709551615", "18446744073709551615"},
      {"-9223372036854775808", "-9223372036854775808"},
      {"-.5", "real -.5"},
      {"+1.5e+10", "real 1.5e+10"},
      {"1E3", "real 1E3"},
      {"NULL", "null"},
      {"True", "bool 1"},
      {"'\\''", "char 39"},
      {"'\\x0'", "char 0"},
      {"'\\Xd83d'", "char 55357"},
      {"'\xC3\xA9'", "char 233"},
      {"\"\"", "||"},
      {"\"a\" // b\n\"c\" /* \" */ \"\xC3\xA9\"", "|ac\xC3\xA9|"},
      {"\"a\n b\"", "|a\n b|"},
      {R"("\b\t\n\f\r\"\'\\")", "|\b\t\n\f\r\"'\\|"},
      {R"("\x41\X0042C\x9G")", "|ABC\tG|"},
      {R"("\xD83D" "\xde00")", "|\xF0\x9F\x98\x80|"},
  };
  for (const auto& [text, value] : rows) {
    EXPECT_EQ(TSyntaxText::Parse("instance of A{a=" + std::string(text) + ";};"),
              "instance A{a=" + std::string(value) + "}");
  }
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
       "class A{}\nt:1:10: note: there is no \";\" behind this \"}\"\nclass A {} x"
       "\n         ^\nt:1:12: error: expected a class, an instance, the "
       "declaration of a qualifier or a directive, found \"x\"\nclass A {} x\n"
       "           ^"},
      {"Qualifier A:string, Scope(any, x);",
       "qualifier 13:A (any)()\nt:1:32: warning: unknown scope \"x\"\n"
       "Qualifier A:string, Scope(any, x);\n                               ^"},
  };
  for (const auto& [text, messages] : rows) EXPECT_EQ(TSyntaxText::Parse(text), messages);
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
    const std::string shown = TSyntaxText::Parse("instance of A{a=\n" + std::string(text) + ";};");
    EXPECT_NE(shown.find("\nt:2:" + std::string(message)), std::string::npos) << shown;
  }
  EXPECT_EQ(TSyntaxText::Parse(R"(instance of A{a="r\c\D:\q\xDE00z";};)").substr(0, 35),
            "instance A{a=|r\\c\\D:\\q\xEF\xBF\xBDz|}\nt:1:19");
}

TEST(TMofParserTest, GoesOnWithTheNextDeclaration) {
  const std::tuple<const char*, const char*, int> rows[] = {
      {"class A { uint8 a[] = {1;}; uint8 b; }; class B{};", "class B{}", 1},
      {"class A B {uint8 a;}; class B{};", "class B{}", 1},
      {"Qualifier A; class B{};", "class B{}", 1},
      {"some prose; more of it\n[Key]\nclass B{};", "[Key]class B{}", 2},
      {"class A { uint8 a\nclass B{};\nclass C{};", "class B{} class C{}", 1},
      {"class A {\nclass B{};", "class B{}", 1},
      {"Qualifier A : string\n#pragma x\ninstance  of B{};", "#x|| instance B{}", 1},
      {"class A { string a = 1 \"};\"; }; /* }; */ class B{};", "class B{}", 1},
      {"class A { string a = \"x; };\nclass B { string b = \"y\"; };\nclass C {};", "class C{}", 1},
      {"x /* ; */ // ;\n/* class\nclass A{}; */\nclass B{};", "class B{}", 1},
      {"x\n/*", "", 2},
      {"class A { x\n\"\\", "", 1},
      {"x;x;x;x;class B{};x", "class B{}", 5},
      {"class A { [Key", "", 1},
  };
  for (const auto& [text, tree, errors] : rows) {
    int errorCount = 0;
    const auto count = [&](const std::string& one) {
      errorCount += one.find(": error: ") != std::string::npos ? 1 : 0;
    };
    TMofDiagnostics diagnostics({}, count);
    const TMofSource source("t", text);
    EXPECT_EQ(TSyntaxText::Join(TMofParser(diagnostics).Parse(source), " "), tree) << text;
    EXPECT_EQ(errorCount, errors) << text;
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
  std::string messages;
  TMofDiagnostics diagnostics(options, [&](const std::string& one) { messages += one; });
  const TMofSource source("t", "instance of A{a=\"\\q\\q\";}; x");
  EXPECT_THROW(TMofParser(diagnostics).Parse(source), TMofStrictStop);
  EXPECT_EQ(messages.substr(0, 36), "t:1:18: error: unknown escape; the b");
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
