#include <boost/algorithm/string/trim.hpp>
#include <cctype>
#include <fstream>
#include <locale>
#include <map>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What stands between separators that are in no brackets, without blanks around it.
TNames Split(const std::string& text, char separator) {
  TNames parts{""};
  int depth = 0;
  for (const char character : text) {
    if (character == '(' || character == '{') ++depth;
    if (character == ')' || character == '}') --depth;
    if (character == separator && depth == 0) {
      parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  for (std::string& part : parts) boost::algorithm::trim(part);
  return parts;
}

/// What stands between back-quotes.
TNames CodeOf(const std::string& cell) {
  const TNames parts = Split(cell, '`');
  TNames code;
  for (std::size_t i = 1; i < parts.size(); i += 2) code.push_back(parts[i]);
  return code;
}

/// The text without its first and last character.
std::string InnerOf(const std::string& text) { return text.substr(1, text.size() - 2); }

template <class TNumber>
TCIMValue ReadNumber(const std::string& text) {
  if constexpr (std::is_unsigned_v<TNumber>) return static_cast<TNumber>(std::stoull(text));
  return static_cast<TNumber>(std::stod(text));
}

TCIMValue ReadText(const std::string& text) { return InnerOf(text); }
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
  for (const auto& item : Split(InnerOf(text), ',')) {
    if (!item.empty()) elements.push_back(ReadScalar(row, item));
  }
  return TCIMValue::Array(row.type, elements);
}

/// Texts in braces, else a text, a flag (true where nothing is given), an 8-bit number or a null of
/// the qualifier's usual type.
TCIMValue ReadQualifierValue(const std::string& name, const std::string& text) {
  if (text.empty()) return true;
  if (text[0] == '{') return ReadArray(GetTypes().at("string"), text);
  const std::string inner = InnerOf(text);
  if (inner[0] == '"') return ReadText(inner);
  if (inner == "null") {
    return TCIMValue::Null(name == "Base"              ? TType::kUInt8
                           : name == "Values"          ? TType::kStringArray
                           : name == "AbbreviateUnits" ? TType::kBoolean
                                                       : TType::kString);
  }
  return std::isdigit(inner[0]) != 0 ? ReadNumber<unsigned char>(inner) : ReadBoolean(inner);
}

/// As in much of Europe: 1.500 is more than a thousand.
struct TGrouping : std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class TDisplayDocumentTest : public TRepositoryTest {
 protected:
  void TearDown() override { std::locale::global(std::locale::classic()); }

  /// The texts of a property of a new class's instance.
  TNames Show(const std::string& qualifiers, const std::string& type, const std::string& value) {
    const bool isArray = type.back() == ']';
    const TTypeRow& row = GetTypes().at(isArray ? type.substr(0, type.size() - 2) : type);
    const TCIMValue shown = isArray ? ReadArray(row, value) : ReadScalar(row, value);
    const auto cimClass = DefineClass("Class" + std::to_string(rows++));
    const auto declaration =
        cimClass->AllocatePropertyDecl("Shown", TCIMValue::Null(shown.GetType()), {});
    for (const std::string& qualifier : Split(qualifiers, ',')) {
      const std::size_t end = std::min(qualifier.find_first_of("({"), qualifier.size());
      if (end == 0) continue;
      const std::string name = qualifier.substr(0, end);
      Qualify(*declaration, name, ReadQualifierValue(name, qualifier.substr(end)));
    }
    declaration->AddToClass({});
    const auto property = NewInstance(cimClass, {{"Shown", shown}})->GetProperty("Shown", {});
    property->SetPrevValue(shown);
    if (isArray) return property->ToStringVector();
    EXPECT_EQ(property->PrevValueToString(), property->ToString());
    return {property->ToString()};
  }

  void ShowEveryRow();

  int rows = 0;
};

void TDisplayDocumentTest::ShowEveryRow() {
  std::ifstream document(DISPLAY_DOCUMENT);
  for (std::string line; std::getline(document, line);) {
    const TNames cells = Split(line, '|');
    constexpr std::size_t kRowParts = 6;  // four cells, and nothing before and behind them
    const bool isHead = line.rfind("| Qualifiers", 0) == 0 || line.rfind("|-", 0) == 0;
    if (isHead || cells.size() != kRowParts) continue;
    SCOPED_TRACE(line);
    const TNames qualifiers = CodeOf(cells[1]);
    const TNames type = CodeOf(cells[2]);
    const TNames value = CodeOf(cells[3]);
    TNames shown = CodeOf(cells[4]);
    ASSERT_EQ(type.size() + value.size(), 2U) << "not laid out as a row";
    if (shown.empty() && type[0].back() != ']') shown.emplace_back();
    EXPECT_EQ(Show(qualifiers.empty() ? "" : qualifiers[0], type[0], value[0]), shown);
  }
  EXPECT_GT(rows, 90) << "rows of " DISPLAY_DOCUMENT;
}

TEST_F(TDisplayDocumentTest, EveryRowIsTrue) { ShowEveryRow(); }

TEST_F(TDisplayDocumentTest, EveryRowIsTrueInAnyGlobalLocale) {
  std::locale::global(std::locale(std::locale(), new TGrouping));
  ShowEveryRow();
}

}  // namespace
}  // namespace NZELVYR20
