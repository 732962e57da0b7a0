#include "TShortPathReader.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "TScopedSilence.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kNameLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789";

std::size_t NameEnd(const std::string& text, std::size_t start) {
  return std::min(text.find_first_not_of(kNameLetters, start), text.size());
}

/// The end of the quoted text that begins at `start`: past its quote, or 0 where it has none.
std::size_t QuotedEnd(const std::string& text, std::size_t start) {
  if (start >= text.size() || text[start] != '"') return 0;
  for (std::size_t i = start + 1; i < text.size(); ++i) {
    if (text[i] == '"') return i + 1;
    if (text[i] == '\\') ++i;
  }
  return 0;
}

/// The text without its quotes; one that does not stand in quotes as a whole stays.
std::string Unquote(const std::string& text) {
  if (QuotedEnd(text, 0) != text.size() || text.empty()) return text;
  std::string content;
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    if (text[i] == '\\') ++i;
    content += text[i];
  }
  return content;
}

/// Whether a key's name and "=" stand there.
bool BeginsKey(const std::string& text, std::size_t start) {
  const std::size_t end = NameEnd(text, start);
  return end > start && end < text.size() && text[end] == '=';
}

/// Where the value that begins at `start` ends: at the comma before the next key, or at the end.
std::size_t ValueEnd(const std::string& text, std::size_t start) {
  std::size_t comma = text.find(',', std::max(start, QuotedEnd(text, start)));
  while (comma != std::string::npos && !BeginsKey(text, comma + 1)) {
    comma = text.find(',', comma + 1);
  }
  return std::min(comma, text.size());
}

/// Empty where that is no list of keys.
std::vector<TGivenKey> ReadKeys(const std::string& text, std::size_t start) {
  std::vector<TGivenKey> keys;
  while (start < text.size()) {
    if (!BeginsKey(text, start)) return {};
    const std::size_t equals = NameEnd(text, start);
    const std::size_t end = ValueEnd(text, equals + 1);
    keys.push_back(
        {text.substr(start, equals - start), Unquote(text.substr(equals + 1, end - equals - 1))});
    start = end + 1;
  }
  return keys;
}

}  // namespace

TShortPathReader::TShortPathReader(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {}

boost::shared_ptr<ICIMClass> TShortPathReader::FindClass(const std::string& text) const {
  const std::size_t end = NameEnd(text, 0);
  if (end < text.size() && text[end] != ':' && text[end] != '.') return {};
  const TScopedSilence silence;
  try {
    return namespace_->GetClass(text.substr(0, end), {});
  } catch (const TVYRException&) {
    return {};
  }
}

std::vector<TShortPath> TShortPathReader::Read(const std::string& text) const {
  std::vector<TShortPath> readings;
  if (const auto cimClass = FindClass(text)) {
    const std::size_t end = NameEnd(text, 0);
    if (end == text.size()) {
      readings.push_back({cimClass, {}});
    } else if (text[end] == ':') {
      readings.push_back({cimClass, {{"", Unquote(text.substr(end + 1))}}});
    } else if (auto keys = ReadKeys(text, end + 1); !keys.empty()) {
      readings.push_back({cimClass, std::move(keys)});
    }
  }
  readings.push_back({{}, {{"", Unquote(text)}}});
  return readings;
}

}  // namespace NZELVYR20
