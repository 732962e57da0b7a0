#include <boost/make_shared.hpp>
#include <charconv>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <typeinfo>

#include "Failures.h"
#include "ICIMQualifier.h"
#include "TInmemPropertyBase.h"
#include "TInmemPropertyDecl.h"
#include "TValueMapTable.h"
#include "UnsignedNumber.h"

namespace NZELVYR20 {

namespace {

using TType = TCIMValue::TCIMType;
using TTable = std::vector<TInmemPropertyBase::TValueMapEntry>;

constexpr std::uint64_t kOpen = std::numeric_limits<std::uint64_t>::max();
constexpr const char* kRange = "..";

/// What one entry of a value map says: a number where it has one, and whether a range follows it.
struct TMapNumber {
  std::uint64_t number = 0;  ///< an entry without digits counts as 0
  bool isOpen = false;
};

/// What nearly every entry is: digits that fit, and nothing after them or a range's dots.
std::optional<TMapNumber> ReadPlainNumber(const std::string& text) {
  TMapNumber read;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, read.number);
  if (error != std::errc()) return std::nullopt;
  read.isOpen = std::string_view(rest, static_cast<std::size_t>(end - rest)).substr(0, 2) == kRange;
  if (rest != end && !read.isOpen) return std::nullopt;
  return read;
}

/// Numbers are decimal and may have blanks before them; what follows a range's dots is not read.
TMapNumber ReadNumber(const std::string& text) {
  if (const auto plain = ReadPlainNumber(text)) return *plain;
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  TMapNumber read;
  char first = '\0';
  char second = '\0';
  stream >> read.number >> first >> second;
  read.isOpen = first == '.' && second == '.';
  return read;
}

bool EndsOpen(const TTable& table) { return !table.empty() && table.back().high == kOpen; }

/// Turns the entries of a value map, one by one and in order, into ranges.
class TValueMapReader {
 public:
  TValueMapReader(TTable& table, std::string& otherText) : table_(table), otherText_(otherText) {}

  /// False when an entry contradicts the one before it.
  bool Read(const std::string& entry, const std::string& text) {
    if (entry.compare(0, 2, kRange) != 0) {
      AddFrom(ReadNumber(entry), text);
      return true;
    }
    if (EndsOpen(table_)) return false;
    if (entry == kRange) {
      otherText_ = text;
    } else {
      AddUpTo(ReadNumber(entry.substr(2)).number, text);
    }
    return true;
  }

 private:
  void AddUpTo(std::uint64_t high, const std::string& text) {
    table_.push_back({nextLow_, high, text});
    nextLow_ = high + 1;
  }

  /// A range "5..9" is open like "5..": only the next number closes it.
  void AddFrom(TMapNumber from, const std::string& text) {
    if (EndsOpen(table_)) table_.back().high = from.number - 1;
    table_.push_back({from.number, from.isOpen ? kOpen : from.number, text});
    nextLow_ = from.number + 1;
  }

  TTable& table_;
  std::string& otherText_;
  std::uint64_t nextLow_ = 0;
};

/// In place: hosts offer the elements of values alone that may change.
const std::vector<TCIMValue>& GetElements(const ICIMQualifier& qualifier) {
  const TCIMValue& array = qualifier.GetValue({});
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): nothing is changed through it
  return static_cast<std::vector<TCIMValue>&>(const_cast<TCIMValue&>(array));
}

constexpr unsigned char kDecimal = 10;

/// Without a value map the texts are numbered by position.
void NumberTexts(const std::vector<TCIMValue>& texts, TTable& table) {
  table.reserve(table.size() + texts.size());
  std::uint64_t number = 0;
  for (const TCIMValue& text : texts) {
    table.push_back({number, number, text.ToString(kDecimal)});
    ++number;
  }
}

bool IsTranslatable(const TCIMValue& value, int arrayBit) {
  if (value.IsNull()) return false;
  switch (static_cast<int>(value.GetType()) - arrayBit) {
    case TType::kBoolean:
    case TType::kUInt8:
    case TType::kUInt16:
    case TType::kUInt32:
    case TType::kUInt64:
      return true;
    default:
      return false;
  }
}

std::uint64_t ToNumber(const TCIMValue& value) {
  if (value.GetType() == TType::kBoolean) return static_cast<bool>(value) ? 1 : 0;
  const auto number = ReadUnsigned(value);
  if (!number) throw Failure::NotSupported();
  return *number;
}

}  // namespace

/// The declaration, where it is one of the repository's; empty where it is a host's.
const TInmemPropertyDecl* TInmemPropertyBase::FindOwnDeclaration() const {
  const ICIMPropertyDecl& declaration = Declaration();
  const bool isOwn = typeid(declaration) == typeid(TInmemPropertyDecl);  // a cast takes much longer
  return isOwn ? static_cast<const TInmemPropertyDecl*>(&declaration) : nullptr;
}

/// A miss is ordinary, several for each rendered value, and so it does not throw on the way.
boost::shared_ptr<const ICIMQualifier> TInmemPropertyBase::FindQualifier(
    const TDisplayQualifier& name) const {
  if (const auto* const own = FindOwnDeclaration()) {
    return own->GetQualifiers().FindRare(name.key, name.bit);
  }
  const auto declaration = GetDeclaration({});
  try {
    return declaration->GetQualifier(name.name, {});
  } catch (const TVYRException& failure) {
    if (!Failure::IsNotFound(failure)) throw Failure::SameStatus(failure);
    return {};
  }
}

/// Empty also where the qualifier is null or of another type.
boost::shared_ptr<const ICIMQualifier> TInmemPropertyBase::FindUsableQualifier(
    const TDisplayQualifier& name, TCIMValue::TCIMType type) const {
  auto qualifier = FindQualifier(name);
  const bool isUsable =
      qualifier && !qualifier->GetValue({}).IsNull() && qualifier->GetType({}) == type;
  return isUsable ? qualifier : boost::shared_ptr<const ICIMQualifier>();
}

bool TInmemPropertyBase::BuildValueMapEntryArray(std::vector<TValueMapEntry>& table,
                                                 std::string& otherText) const {
  const auto values = FindUsableQualifier(DisplayQualifier::kValues, TType::kStringArray);
  if (!values) return false;
  const std::vector<TCIMValue>& texts = GetElements(*values);
  const auto valueMap = FindUsableQualifier(DisplayQualifier::kValueMap, TType::kStringArray);
  if (!valueMap) {
    NumberTexts(texts, table);
    return true;
  }
  const std::vector<TCIMValue>& entries = GetElements(*valueMap);
  if (entries.size() != texts.size()) return false;
  otherText.clear();
  table.reserve(entries.size());
  TValueMapReader reader(table, otherText);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!reader.Read(static_cast<std::string>(entries[i]), texts[i].ToString(kDecimal))) {
      return false;
    }
  }
  return true;
}

/// Empty where none translates the value. The pointer holds what a host's declaration makes; the
/// repository's keep theirs.
boost::shared_ptr<TValueMapTable> TInmemPropertyBase::FindTable(const TCIMValue& value,
                                                                int arrayBit) const {
  using TPointer = boost::shared_ptr<TValueMapTable>;
  if (!IsTranslatable(value, arrayBit)) return TPointer();
  const TInmemPropertyDecl* const own = FindOwnDeclaration();
  if (own != nullptr) return TPointer(TPointer(), FindKeptTable(*own));
  auto made = boost::make_shared<TValueMapTable>();
  return BuildValueMapEntryArray(made->entries, made->otherText) ? made : TPointer();
}

TValueMapTable* TInmemPropertyBase::FindKeptTable(const TInmemPropertyDecl& declaration) const {
  const TInmemQualifierSet& qualifiers = declaration.GetQualifiers();
  std::unique_ptr<TValueMapTable>& kept = declaration.GetValueMapTable();
  if (!kept || !kept->IsCurrent(qualifiers)) {
    kept.reset();
    if (!FindQualifier(DisplayQualifier::kValues)) return nullptr;
    auto made = std::make_unique<TValueMapTable>(qualifiers);
    made->isUsable = BuildValueMapEntryArray(made->entries, made->otherText);
    kept = std::move(made);
  }
  return kept->isUsable ? kept.get() : nullptr;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): one of three const operations
std::string TInmemPropertyBase::LookupInTable(const TCIMValue& value,
                                              std::vector<TValueMapEntry>& table,
                                              std::string& otherText) const {
  const std::uint64_t number = ToNumber(value);
  for (const TValueMapEntry& entry : table) {
    if (entry.low <= number && number <= entry.high) return entry.text;
  }
  return otherText.empty() ? value.ToString(kDecimal) : otherText;
}

std::string TInmemPropertyBase::ToStringWithBase(const TCIMValue& value) const {
  const auto base = FindUsableQualifier(DisplayQualifier::kBase, TType::kUInt8);
  return value.ToString(base ? static_cast<unsigned char>(base->GetValue({})) : kDecimal);
}

}  // namespace NZELVYR20
