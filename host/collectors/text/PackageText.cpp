#include "PackageText.h"

#include <map>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

bool IsInstalled(std::string_view status) {
  const std::vector<std::string_view> words = SplitWords(status);
  return !words.empty() && words.back() == "installed";
}

void SetField(TPackageFacts& package, const TField& field, bool& isInstalled) {
  if (field.name == "Package") package.name = field.value;
  if (field.name == "Version") package.version = field.value;
  if (field.name == "Architecture") package.architecture = field.value;
  if (field.name == "Maintainer") package.maintainer = field.value;
  if (field.name == "Description") package.summary = field.value;
  if (field.name == "Status") isInstalled = IsInstalled(field.value);
}

/// A header of rpm: numbers of 32 bits, greatest byte first. How many entries there are, and how
/// much data; for each entry what it is, its type, where its data begins, and how many there are.
class TRpmHeader {
 public:
  explicit TRpmHeader(std::string_view header) : header_(header) {}

  /// Whether it is as long as it says.
  bool Index();

  /// Empty where it lacks the entry, or has it as anything else.
  std::string GetText(std::uint32_t tag) const;
  std::optional<std::uint32_t> GetNumber(std::uint32_t tag) const;

 private:
  struct TEntry {
    std::uint32_t type = 0;
    std::string_view data;  ///< from its first byte to the end of all
  };

  std::optional<std::uint32_t> Read(std::size_t place) const;

  std::string_view header_;
  std::map<std::uint32_t, TEntry> entries_;
};

std::optional<std::uint32_t> ReadNumber(std::string_view bytes) {
  constexpr std::size_t kSize = 4;
  if (bytes.size() < kSize) return std::nullopt;
  std::uint32_t number = 0;
  for (const char byte : bytes.substr(0, kSize)) {
    number = number << 8U | static_cast<unsigned char>(byte);
  }
  return number;
}

std::optional<std::uint32_t> TRpmHeader::Read(std::size_t place) const {
  return place < header_.size() ? ReadNumber(header_.substr(place)) : std::nullopt;
}

bool TRpmHeader::Index() {
  constexpr std::size_t kStart = 8;
  constexpr std::size_t kEntrySize = 16;
  const std::uint64_t count = Read(0).value_or(UINT32_MAX);
  const std::uint64_t size = Read(4).value_or(UINT32_MAX);
  const std::uint64_t dataStart = kStart + count * kEntrySize;
  if (dataStart + size > header_.size()) return false;
  const std::string_view data =
      header_.substr(static_cast<std::size_t>(dataStart), static_cast<std::size_t>(size));
  for (std::size_t at = kStart; at < dataStart; at += kEntrySize) {
    const std::uint32_t offset = Read(at + 8).value_or(UINT32_MAX);
    // That of the entry about the entries counts from the end.
    if (offset >= data.size()) continue;
    entries_.emplace(Read(at).value_or(0), TEntry{Read(at + 4).value_or(0), data.substr(offset)});
  }
  return true;
}

std::string TRpmHeader::GetText(std::uint32_t tag) const {
  constexpr std::uint32_t kText = 6;
  constexpr std::uint32_t kTranslations = 9;  // of which the first is not translated
  const auto found = entries_.find(tag);
  if (found == entries_.end()) return {};
  const auto& [type, data] = found->second;
  const std::size_t end = data.find('\0');
  const bool isText = (type == kText || type == kTranslations) && end != std::string_view::npos;
  return isText ? std::string(Trim(data.substr(0, end))) : std::string();
}

std::optional<std::uint32_t> TRpmHeader::GetNumber(std::uint32_t tag) const {
  constexpr std::uint32_t kNumber = 4;
  const auto found = entries_.find(tag);
  if (found == entries_.end() || found->second.type != kNumber) return std::nullopt;
  return ReadNumber(found->second.data);
}

}  // namespace

std::vector<TPackageFacts> ParsePackages(std::string_view text) {
  std::vector<TPackageFacts> packages;
  TPackageFacts package;
  bool isInstalled = false;
  const auto finish = [&] {
    if (isInstalled && !package.name.empty()) packages.push_back(package);
    package = {};
    isInstalled = false;
  };
  for (const std::string_view line : SplitLines(text)) {
    if (Trim(line).empty()) finish();
    // What goes on with a blank belongs to the field above.
    if (line.empty() || line.front() == ' ') continue;
    if (const auto field = SplitField(line, ':')) SetField(package, *field, isInstalled);
  }
  finish();
  return packages;
}

std::optional<TPackageFacts> ParseRpmHeader(std::string_view header) {
  enum ETag : std::uint32_t {
    kName = 1000,
    kVersion,
    kRelease,
    kEpoch,
    kSummary,
    kVendor = 1011,
    kArchitecture = 1022
  };
  TRpmHeader fields(header);
  if (!fields.Index()) return std::nullopt;
  TPackageFacts package;
  package.name = fields.GetText(kName);
  if (package.name.empty() || package.name == "gpg-pubkey") return std::nullopt;
  if (const auto epoch = fields.GetNumber(kEpoch)) package.version = std::to_string(*epoch) + ':';
  package.version += fields.GetText(kVersion) + '-' + fields.GetText(kRelease);
  package.architecture = fields.GetText(kArchitecture);
  package.maintainer = fields.GetText(kVendor);
  package.summary = fields.GetText(kSummary);
  return package;
}

}  // namespace NZELVYR20
