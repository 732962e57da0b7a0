#include "TMofDiagnostics.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "StartsCharacter.h"

namespace NZELVYR20 {
namespace {

/// Beyond this many characters a line, as generated files have them, is no help.
constexpr std::size_t kLongestExcerpt = 300;

/// What brings a caret under a column: tabs stay tabs, so that both lines are shown alike.
std::string GetIndent(const std::string& line, std::size_t column) {
  std::string indent;
  for (const char byte : line) {
    if (indent.size() + 1 == column) break;
    if (!StartsCharacter(byte)) continue;
    indent += byte == '\t' ? '\t' : ' ';
  }
  return indent + std::string(column - 1 - std::min(indent.size(), column - 1), ' ');
}

std::string GetExcerpt(const TMofSource& source, const TMofPlace& place,
                       const TMofPosition& position) {
  const std::string line = source.GetLine(place);
  if (line.size() > kLongestExcerpt) return {};
  return "\n" + line + "\n" + GetIndent(line, position.column) + "^";
}

}  // namespace

TMofDiagnostics::TMofDiagnostics(const TMofOptions& options, TSink sink)
    : limit_(options.reportLimit),
      isQuiet_(options.isQuiet),
      isStrict_(options.isStrict),
      sink_(std::move(sink)) {}

void TMofDiagnostics::AddSource(const TMofSource& source) {
  sources_.emplace(source.GetText().data(), &source);
}

const TMofSource& TMofDiagnostics::FindSource(const TMofPlace& place) const {
  return *std::prev(sources_.upper_bound(place.byte))->second;
}

bool TMofDiagnostics::IsFurtherDown(const TMofPlace& place, const TMofPlace& other) const {
  return std::less<>()(other.byte, place.byte) && &FindSource(place) == &FindSource(other);
}

void TMofDiagnostics::Report(TSeverity& severity, const std::string& where, const std::string& text,
                             const std::string& excerpt) {
  ++severity.count;
  if (isQuiet_ && &severity != &errors_) return;
  if (severity.count <= limit_) {
    sink_(where + severity.name + ": " + text + excerpt);
  } else if (severity.count == limit_ + 1) {
    sink_(std::string("there are more ") + severity.name + "s, which are not shown");
  }
}

void TMofDiagnostics::ReportAt(TSeverity& severity, const TMofPlace& place,
                               const std::string& text) {
  const bool isShown = severity.count < limit_;
  if (place.byte == nullptr || !isShown) return Report(severity, "", text, "");
  const TMofSource& source = FindSource(place);
  const TMofPosition position = source.Locate(place);
  Report(severity,
         source.GetName() + ":" + std::to_string(position.line) + ":" +
             std::to_string(position.column) + ": ",
         text, GetExcerpt(source, place, position));
}

void TMofDiagnostics::Error(const TMofPlace& place, const std::string& text) {
  ReportAt(errors_, place, text);
  if (isStrict_) throw TMofStrictStop();
}

void TMofDiagnostics::FileError(const std::string& file, const std::string& text) {
  Report(errors_, file + ": ", text, "");
  if (isStrict_) throw TMofStrictStop();
}

void TMofDiagnostics::Warning(const TMofPlace& place, const std::string& text) {
  if (isStrict_) return Error(place, text);
  ReportAt(warnings_, place, text);
}

void TMofDiagnostics::Note(const TMofPlace& place, const std::string& text) {
  ReportAt(notes_, place, text);
}

}  // namespace NZELVYR20
