#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TRowWriter.h"
#include "TTable.h"
#include "TextWidth.h"

namespace NZELVYR20 {
namespace {

TEST(TextWidth, CountsWhatATerminalShows) {
  for (const auto& [text, width] :
       std::vector<std::pair<std::string, std::size_t>>{{"", 0},
                                                        {"abc", 3},
                                                        {"\u00E9t\u00E9", 3},
                                                        {"e\u0301", 1},  // an accent of its own
                                                        {"\u6F22\u5B57", 4},  // wide
                                                        {"\xE9", 1}}) {
    EXPECT_EQ(TextWidth(text), width) << text;
  }
}

TEST(FoldText, BreaksWhereWordsAndPartsOfPathsEnd) {
  struct TCase {
    std::string text;
    std::vector<std::string> lines;
  };
  for (const TCase& each : std::vector<TCase>{
           {"", {""}},
           {"12345678", {"12345678"}},
           {"one two three", {"one two", "three"}},
           {"one    two34 567", {"one", "two34", "567"}},
           {"12345678 90", {"12345678", "90"}},
           {"{OK, Completed}", {"{OK,", "Complete", "d}"}},
           {"CIM.Name=\"eth0\"", {"CIM.", "Name=", "\"eth0\""}},
           {"  indented", {"  indent", "ed"}},
           {"\u6F22\u5B57\u6F22\u5B57\u6F22", {"\u6F22\u5B57\u6F22\u5B57", "\u6F22"}},
       }) {
    EXPECT_EQ(FoldText(each.text, 8), each.lines) << each.text;
  }
  EXPECT_EQ(FoldText("\u6F22\u5B57", 1), (std::vector<std::string>{"\u6F22", "\u5B57"}));
}

struct TReader {
  EFormat format = EFormat::kTable;
  bool isTerminal = true;
  std::size_t width = 40;
  bool isUnicode = true;
};

/// Two rows, of which one is wide.
std::string Write(const TReader& reader, const std::vector<std::string>& columns,
                  const std::vector<TRow>& rows) {
  std::string text;
  const auto writer =
      TRowWriter::Make(reader.format, columns, {reader.isTerminal, reader.width, reader.isUnicode},
                       [&text](const std::string& piece) { text += piece; });
  for (const TRow& row : rows) writer->Add(row);
  writer->Finish();
  return '\n' + text;
}

const std::vector<std::string> kColumns = {"Name", "Model", "Size"};
const std::vector<TRow> kRows = {{{TCIMValue("sd\u6F22\n"), {}},
                                  {TCIMValue("A disk of many, many words"), {}},
                                  {TCIMValue(7U), "7 GB"}},
                                 {{TCIMValue("\""), {}},
                                  {TCIMValue::Null(TCIMValue::TCIMType::kString), {}},
                                  {TCIMValue(-1), {}}}};

TEST(RowWriter, FoldsATableWhereATerminalIsTooNarrow) {
  EXPECT_EQ(Write({EFormat::kTable, false, 10}, kColumns, kRows), R"(
Name    Model                       Size
sd漢\n  A disk of many, many words  7 GB
"                                   -1
)");
  EXPECT_EQ(Write({}, kColumns, kRows), R"(
Name    Model                       Size
──────  ──────────────────────────  ────
sd漢\n  A disk of many, many words  7 GB
"                                   -1
)");
  EXPECT_EQ(Write({EFormat::kTable, true, 30, false}, kColumns, kRows), R"(
Name    Model             Size
------  ----------------  ----
sd漢\n  A disk of many,   7 GB
        many words
"                         -1
)");
  EXPECT_EQ(Write({EFormat::kTable, true, 22}, kColumns, kRows), R"(
Name   sd漢\n
Model  A disk of many,
       many words
Size   7 GB

Name  "
Size  -1
)");
  EXPECT_EQ(Write({}, kColumns, {}), "\nName  Model  Size\n────  ─────  ────\n");
  EXPECT_EQ(Write({}, {}, {}), "\n");
}

TEST(RowWriter, WritesStoredValuesForPrograms) {
  EXPECT_EQ(Write({EFormat::kJson}, kColumns, kRows), R"(
[
{"Name":"sd漢\n","Model":"A disk of many, many words","Size":7},
{"Name":"\"","Model":null,"Size":-1}
]
)");
  EXPECT_EQ(Write({EFormat::kJson}, kColumns, {}), "\n[]\n");
  EXPECT_EQ(Write({EFormat::kJsonLines}, {"A"}, {{{TCIMValue(), {}}}}), "\n{\"A\":null}\n");
  EXPECT_EQ(Write({EFormat::kCsv}, kColumns, kRows),
            "\nName,Model,Size\r\n\"sd\u6F22\n\",\"A disk of many, many words\",7 GB\r\n"
            "\"\"\"\",,-1\r\n");
  EXPECT_EQ(Write({EFormat::kCsv}, {"A"}, {{{TCIMValue(), {}}}}), "\nA\r\n\"\"\r\n");
  EXPECT_EQ(Write({EFormat::kCsv}, {"A", "B"}, {{{TCIMValue(""), {}}, {}}}), "\nA,B\r\n\"\",\r\n");
}

}  // namespace
}  // namespace NZELVYR20
