#include "CheckXml.h"

#include <algorithm>
#include <array>
#include <boost/locale/utf.hpp>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>

#include "IsXmlCharacter.h"
#include "TRefusal.h"

namespace NZELVYR20 {
namespace {

[[noreturn]] void RefuseXml(const std::string& why) {
  throw TRefusal(400, "request-not-well-formed", why);
}

void CheckCharacters(std::string_view text) {
  bool areAllowed = true;
  const char* const end = text.data() + text.size();
  for (const char* next = text.data(); next != end;) {
    const auto code = boost::locale::utf::utf_traits<char>::decode(next, end);
    const bool isCharacter = boost::locale::utf::is_valid_codepoint(code);
    if (!isCharacter) throw TRefusal(400, "request-not-valid", "not UTF-8");
    areAllowed = areAllowed && IsXmlCharacter(code);
  }
  if (!areAllowed) RefuseXml("a character that XML forbids");
}

/// What stands between "&" and ";".
void CheckReference(std::string_view name) {
  if (name.size() > 1 && name.front() == '#') {
    const bool isHexadecimal = name[1] == 'x';
    name.remove_prefix(isHexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, failure] = std::from_chars(name.data(), end, code, isHexadecimal ? 16 : 10);
    if (failure == std::errc() && stop == end && IsXmlCharacter(code)) return;
    RefuseXml("a reference to no character");
  }
  constexpr std::array<std::string_view, 5> kKnown = {"amp", "lt", "gt", "quot", "apos"};
  if (std::find(kKnown.begin(), kKnown.end(), name) == kKnown.end()) {
    RefuseXml("an unknown entity");
  }
}

void CheckReferences(std::string_view text) {
  for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
    const std::size_t end = text.find(';', at);
    if (end == std::string_view::npos) RefuseXml("\"&\" without \";\"");
    CheckReference(text.substr(at + 1, end - at - 1));
  }
}

/// Goes from mark to mark through a text.
class TXmlScan {
 public:
  explicit TXmlScan(std::string_view text) : text_(text) {}

  void Run() {
    while (!Rest().empty()) {
      const std::size_t size = std::min(Rest().find('<'), Rest().size());
      CheckText(Rest().substr(0, size));
      at_ += size;
      if (!Rest().empty()) PassMark();
    }
    if (depth_ > 0 || !hadRoot_) RefuseXml("an element does not end");
  }

 private:
  std::string_view Rest() const { return text_.substr(at_); }

  bool Begins(std::string_view start) const { return text_.compare(at_, start.size(), start) == 0; }

  /// Passes what begins with that many characters, up to the end that is asked for.
  std::string_view PassUntil(std::size_t start, std::string_view end) {
    const std::size_t stop = text_.find(end, at_ + start);
    if (stop == std::string_view::npos) RefuseXml("no \"" + std::string(end) + '"');
    const std::string_view passed = text_.substr(at_ + start, stop - at_ - start);
    at_ = stop + end.size();
    return passed;
  }

  void CheckText(std::string_view text) const {
    if (depth_ == 0 && text.find_first_not_of(kXmlBlanks) != std::string_view::npos) {
      RefuseXml("text outside the root");
    }
    if (text.find("]]>") != std::string_view::npos) RefuseXml("\"]]>\" in a text");
    CheckReferences(text);
  }

  void PassMark() {
    if (Begins("<!--")) {
      PassUntil(4, "--");
      if (!Begins(">")) RefuseXml("\"--\" in a comment");
      ++at_;
    } else if (Begins("<![CDATA[")) {
      if (depth_ == 0) RefuseXml("text outside the root");
      PassUntil(9, "]]>");
    } else if (Begins("<?")) {
      if (Begins("<?xml") && text_.find_first_of(kXmlBlanks, at_) == at_ + 5 && at_ > 0) {
        RefuseXml("a declaration that is not at the beginning");
      }
      PassUntil(2, "?>");
    } else if (Begins("<!")) {
      RefuseXml("a document type");
    } else if (Begins("</")) {
      PassUntil(2, ">");
      if (--depth_ < 0) RefuseXml("an end without a beginning");
    } else {
      PassTag();
    }
  }

  void PassTag() {
    if (depth_ == 0 && hadRoot_) RefuseXml("two roots");
    hadRoot_ = true;
    while (text_[at_] != '>') {
      at_ = std::min(text_.find_first_of("\"'>", at_), text_.size());
      if (at_ == text_.size()) RefuseXml("a tag does not end");
      if (text_[at_] == '>') continue;
      const std::string_view value = PassUntil(1, text_.substr(at_, 1));
      if (value.find('<') != std::string_view::npos) RefuseXml("\"<\" in an attribute");
      CheckReferences(value);
      if (at_ == text_.size()) RefuseXml("a tag does not end");
    }
    if (text_[at_ - 1] != '/' && ++depth_ > kDeepestElement) RefuseXml("nested too deep");
    ++at_;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool hadRoot_ = false;
};

}  // namespace

void CheckXml(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  CheckCharacters(text);
  if (text.substr(0, kMark.size()) == kMark) text.remove_prefix(kMark.size());
  TXmlScan(text).Run();
}

}  // namespace NZELVYR20
