#include "TChangeText.h"

#include <utility>
#include <vector>

#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

std::string DisplayText(const ICIMProperty& property) {
  if (property.GetValue({}).IsNull()) return "no value";
  const std::string text = TText::OneLine(TPrinter::PropertyText(property));
  return text.empty() ? "\"\"" : text;
}

std::string StoredText(const ICIMProperty& property) {
  return " (" + TText::OneLine(TPrinter::ValueText(property.GetValue({}))) + ')';
}

/// "added", or "removed", and the path.
std::string HeadText(const TInstanceChange& change) {
  return (!change.before ? "added " : !change.after ? "removed " : "changed ") + change.path;
}

bool IsOnBothSides(const TInstanceChange& change) { return change.before && change.after; }

}  // namespace

/// Values that differ only in what the display leaves out are followed by what is stored.
std::string TChangeText::PropertyText(const TPropertyChange& change) const {
  std::string before = DisplayText(*change.before);
  std::string after = DisplayText(*change.after);
  if (before == after) {
    before += StoredText(*change.before);
    after += StoredText(*change.after);
  }
  return TInstanceReader::NameOf(*change.after) + ": " + before + arrow_ + after;
}

std::vector<std::string> TChangeText::ListProperties(const TInstanceChange& change) const {
  std::vector<std::string> texts;
  for (const TPropertyChange& property : change.properties) {
    if (withMomentary_ || !property.isMomentary) texts.push_back(PropertyText(property));
  }
  return texts;
}

bool TChangeText::WriteBlocks(const TComparison& comparison, const TWriteText& write) const {
  bool isAnything = !comparison.remarks.empty();
  for (const std::string& remark : comparison.remarks) write(remark + '\n');
  for (const TInstanceChange& change : comparison.changes) {
    const std::vector<std::string> properties = ListProperties(change);
    if (IsOnBothSides(change) && properties.empty()) continue;
    isAnything = true;
    std::string block = HeadText(change) + '\n';
    for (const std::string& property : properties) block += "  " + property + '\n';
    write(block);
  }
  return isAnything;
}

void TChangeText::WriteLines(const TComparison& comparison, const std::string& lead,
                             const TWriteText& write) const {
  for (const std::string& remark : comparison.remarks) write(lead + remark + '\n');
  for (const TInstanceChange& change : comparison.changes) {
    const std::string line = lead + HeadText(change);
    if (!IsOnBothSides(change)) write(line + '\n');
    for (const std::string& property : ListProperties(change)) {
      write(std::string(line).append(": ").append(property) + '\n');
    }
  }
}

}  // namespace NZELVYR20
