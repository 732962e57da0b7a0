#include <cctype>
#include <fstream>
#include <locale>
#include <sstream>

#include "TMofLoader.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

TNames Split(const std::string& text, char separator) {
  TNames parts;
  std::istringstream rest(text);
  for (std::string part; std::getline(rest, part, separator);) parts.push_back(part);
  return parts;
}

/// What stands between back-quotes.
TNames CodeOf(const std::string& cell) {
  const TNames parts = Split(cell, '`');
  TNames code;
  for (std::size_t i = 1; i < parts.size(); i += 2) code.push_back(parts[i]);
  return code;
}

/// Declarations of the usual types, but for the qualifiers to which a text or a number is given.
std::string DeclareFor(const std::string& qualifiers) {
  std::string declared = "Qualifier Key : boolean = false, Scope(any);";
  const std::pair<std::string, std::string> all[] = {
      {"Units", "string"},       {"AbbreviateUnits", "boolean"}, {"DisplayFixedUnits", "string"},
      {"NullDisplay", "string"}, {"DisplayCPUTime", "boolean"},  {"Base", "uint8"},
      {"Values", "string[]"},    {"ValueMap", "string[]"}};
  for (const auto& [name, usual] : all) {
    const std::size_t value = qualifiers.find(name + "(");
    const char first = value == std::string::npos ? ' ' : qualifiers[value + name.size() + 1];
    const std::string type = first == '"' ? "string" : std::isdigit(first) != 0 ? "uint8" : usual;
    declared.append("Qualifier ").append(name).append(" : ").append(type).append(", Scope(any);");
  }
  return declared;
}

/// As in much of Europe: 1.500 is more than a thousand.
struct TGrouping : std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class TDisplayDocumentTest : public TRepositoryTest {
 protected:
  void TearDown() override { std::locale::global(std::locale::classic()); }

  /// The texts of a property with that default.
  TNames Show(const std::string& qualifiers, const std::string& type, const std::string& value) {
    space = NewNamespace(false);
    TMofLoader loader(space, {}, [](const std::string& message) { ADD_FAILURE() << message; });
    const bool isArray = type.back() == ']';
    loader.ReadText("row", DeclareFor(qualifiers) + "class Row { [Key] uint8 Id; " +
                               (qualifiers.empty() ? "" : '[' + qualifiers + ']') +
                               type.substr(0, type.find('[')) + " Shown" + (isArray ? "[]" : "") +
                               " = " + value + "; };");
    loader.Enter();
    const auto property = NewInstance(space->GetClass("Row", {}))->GetProperty("Shown", {});
    property->SetValue(property->GetValue({}), {});
    property->SetPrevValue(property->GetValue({}));
    if (isArray) return property->ToStringVector();
    EXPECT_EQ(property->PrevValueToString(), property->ToString());
    return {property->ToString()};
  }

  void ShowEveryRow();
};

void TDisplayDocumentTest::ShowEveryRow() {
  int rows = 0;
  std::ifstream document(DISPLAY_DOCUMENT);
  for (std::string line; std::getline(document, line);) {
    const TNames cells = Split(line, '|');
    constexpr std::size_t kRowParts = 5;  // four cells, and nothing before them
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
    ++rows;
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
