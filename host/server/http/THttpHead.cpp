#include "THttpHead.h"

#include <boost/algorithm/string.hpp>
#include <cstddef>

namespace NZELVYR20 {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool IsTokenCharacter(char character) {
  return boost::is_alnum()(character) ||
         std::string_view("!#$%&'*+-.^_`|~").find(character) != std::string_view::npos;
}

bool IsToken(std::string_view text) { return !text.empty() && boost::all(text, IsTokenCharacter); }

/// Without what could end a line for whoever reads it next.
bool IsValue(std::string_view text) {
  return boost::all(text, [](char character) {
    return character == '\t' || (static_cast<unsigned char>(character) >= ' ' && character != 127);
  });
}

bool IsTarget(std::string_view text) {
  return !text.empty() && boost::all(text, [](char character) {
    return static_cast<unsigned char>(character) > ' ' && character != 127;
  });
}

/// Takes a line away, without its end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find(kLineEnd);
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
  return line;
}

}  // namespace

std::optional<THttpHead> THttpHead::Parse(std::string_view text) {
  THttpHead head;
  if (!head.ParseLine(TakeLine(text))) return {};
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.empty()) break;
    if (!head.ParseHeader(line)) return {};
  }
  head.TakeAuthority();
  return head;
}

bool THttpHead::ParseLine(std::string_view line) {
  std::vector<std::string> parts;
  boost::split(parts, line, boost::is_any_of(" "));
  if (parts.size() != 3 || !IsToken(parts[0]) || !IsTarget(parts[1])) return false;
  method_ = parts[0];
  target_ = parts[1];
  version_ = parts[2];
  return boost::starts_with(version_, "HTTP/");
}

bool THttpHead::ParseHeader(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return false;
  const std::string_view name = line.substr(0, colon);
  std::string value(line.substr(colon + 1));
  if (!IsToken(name) || !IsValue(value)) return false;
  boost::trim_if(value, boost::is_any_of(" \t"));
  headers_.emplace_back(name, value);
  return true;
}

void THttpHead::TakeAuthority() {
  const std::size_t scheme = target_.find("://");
  if (scheme == std::string::npos || target_.find('/') < scheme) return;
  const std::size_t path = target_.find_first_of("/?", scheme + 3);
  const std::string authority = target_.substr(scheme + 3, path - scheme - 3);
  for (auto& [name, value] : headers_) {
    if (boost::iequals(name, "Host")) value = authority;
  }
  target_ = path == std::string::npos ? "/" : target_.substr(path);
  if (target_[0] == '?') target_.insert(0, 1, '/');
}

std::vector<std::string> THttpHead::GetAll(std::string_view name) const {
  std::vector<std::string> values;
  for (const auto& [known, value] : headers_) {
    if (boost::iequals(known, name)) values.push_back(value);
  }
  return values;
}

std::optional<std::string> THttpHead::Get(std::string_view name) const {
  const std::vector<std::string> values = GetAll(name);
  return values.empty() ? std::nullopt : std::make_optional(values.front());
}

bool THttpHead::HasWord(std::string_view name, std::string_view word) const {
  for (const std::string& value : GetAll(name)) {
    std::vector<std::string> words;
    boost::split(words, value, boost::is_any_of(","));
    for (std::string& given : words) {
      boost::trim(given);
      if (boost::iequals(given, word)) return true;
    }
  }
  return false;
}

}  // namespace NZELVYR20
