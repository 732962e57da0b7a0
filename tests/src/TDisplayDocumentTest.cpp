#include <fstream>
#include <map>
#include <regex>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

std::vector<std::smatch> FindAll(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), std::sregex_iterator()};
}

/// What stands between back-quotes.
TNames CodeOf(const std::string& cell) {
  static const std::regex kCode("`([^`]*)`");
  TNames code;
  for (const auto& match : FindAll(cell, kCode)) code.push_back(match[1]);
  return code;
}

/// The texts of "a", b and null in a list.
TNames ItemsOf(const std::string& list) {
  static const std::regex kItem("\"[^\"]*\"|[^\\s,{}]+");
  TNames items;
  for (const auto& match : FindAll(list, kItem)) items.push_back(match[0]);
  return items;
}

template <class TNumber>
TCIMValue ReadNumber(const std::string& text) {
  if constexpr (std::is_unsigned_v<TNumber>) return static_cast<TNumber>(std::stoull(text));
  return static_cast<TNumber>(std::stod(text));
}

TCIMValue ReadText(const std::string& text) { return text.substr(1, text.size() - 2); }
TCIMValue ReadBoolean(const std::string& text) { return text == "true"; }

struct TTypeRow {
  TType::ECIMType type;
  TCIMValue (*read)(const std::string& text);
};

const std::map<std::string, TTypeRow>& GetTypes() {
  static const std::map<std::string, TTypeRow> kTypes{
      {"boolean", {TType::kBoolean, ReadBoolean}},
      {"uint8", {TType::kUInt8, ReadNumber<unsigned char>}},
      {"uint16", {TType::kUInt16, ReadNumber<unsigned short>}},
      {"uint32", {TType::kUInt32, ReadNumber<unsigned int>}},
      {"uint64", {TType::kUInt64, ReadNumber<unsigned long long>}},
      {"sint32", {TType::kSInt32, ReadNumber<int>}},
      {"real64", {TType::kReal64, ReadNumber<double>}},
      {"string", {TType::kString, ReadText}},
  };
  return kTypes;
}

TCIMValue ReadScalar(const TTypeRow& row, const std::string& text) {
  return text == "null" ? TCIMValue::Null(row.type) : row.read(text);
}

TCIMValue ReadArray(const TTypeRow& row, const std::string& text) {
  if (text == "null") return TCIMValue::Null(TType::ArrayOf(row.type));
  std::vector<TCIMValue> elements;
  for (const auto& item : ItemsOf(text)) elements.push_back(ReadScalar(row, item));
  return TCIMValue::Array(row.type, elements);
}

/// Texts in braces, else a text, a flag (true where nothing is given) or an 8-bit number.
TCIMValue ReadQualifierValue(const std::string& text) {
  if (text.empty()) return true;
  if (text[0] == '{') return ReadArray(GetTypes().at("string"), text);
  if (text[1] == '"') return ReadText(text.substr(1, text.size() - 2));
  const std::string bare = text.substr(1, text.size() - 2);
  return std::isdigit(bare[0]) != 0 ? ReadNumber<unsigned char>(bare) : ReadBoolean(bare);
}

class TDisplayDocumentTest : public TRepositoryTest {
 protected:
  /// The texts of a property of a new class's instance.
  TNames Show(const std::string& qualifiers, const std::string& type, const std::string& value) {
    static const std::regex kQualifier("(\\w+)(\\([^)]*\\)|\\{[^}]*\\})?");
    const bool isArray = type.back() == ']';
    const TTypeRow& row = GetTypes().at(isArray ? type.substr(0, type.size() - 2) : type);
    const TCIMValue shown = isArray ? ReadArray(row, value) : ReadScalar(row, value);
    const auto cimClass = DefineClass("Class" + std::to_string(rows++));
    const auto declaration = NewPropertyDecl(cimClass, "Shown", TCIMValue::Null(shown.GetType()));
    for (const auto& match : FindAll(qualifiers, kQualifier)) {
      Qualify(*declaration, match[1], ReadQualifierValue(match[2]));
    }
    declaration->AddToClass({});
    const auto property = NewInstance(cimClass, {{"Shown", shown}})->GetProperty("Shown", {});
    return isArray ? property->ToStringVector() : TNames{property->ToString()};
  }

  int rows = 0;
};

TEST_F(TDisplayDocumentTest, EveryRowIsTrue) {
  static const std::regex kRow("\\| (.*) \\| `([a-z0-9]+(?:\\[\\])?)` \\| (`.*`) \\|(.*)\\|");
  std::ifstream document(DISPLAY_DOCUMENT);
  std::smatch cells;
  for (std::string line; std::getline(document, line);) {
    constexpr auto kPipes = 5;
    const bool isHead = line.rfind("| Qualifiers", 0) == 0 || line.rfind("|-", 0) == 0;
    if (isHead || std::count(line.begin(), line.end(), '|') != kPipes) continue;
    SCOPED_TRACE(line);
    ASSERT_TRUE(std::regex_match(line, cells, kRow)) << "not laid out as a row";
    const TNames qualifiers = CodeOf(cells[1]);
    const std::string value = CodeOf(cells[3]).at(0);
    const bool isEmptyText = cells[2].str().back() != ']' && CodeOf(cells[4]).empty();
    EXPECT_EQ(Show(qualifiers.empty() ? "" : qualifiers[0], cells[2], value),
              isEmptyText ? TNames{""} : CodeOf(cells[4]));
  }
  EXPECT_GT(rows, 50) << "rows of " DISPLAY_DOCUMENT;
}

}  // namespace
}  // namespace NZELVYR20
