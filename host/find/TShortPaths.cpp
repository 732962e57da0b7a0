#include "TShortPaths.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

#include "FindTarget.h"
#include "NaturalOrder.h"
#include "ReadValue.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

/// What would be read otherwise than it is meant stands in quotes.
std::string QuoteIfNeeded(const std::string& text) {
  const bool isPlain = !text.empty() && text.front() != ' ' && text.back() != ' ' &&
                       text.find_first_of("\"\\=,") == std::string::npos;
  if (isPlain) return text;
  std::string quoted = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') quoted += '\\';
    quoted += letter;
  }
  return quoted + '"';
}

/// The values of all own keys; the sizes keep them apart.
std::string JoinOwnValues(ICIMInstance& instance, const std::vector<TInstanceKey>& keys) {
  std::string joined;
  for (const TInstanceKey& key : keys) {
    if (!key.isOwn) continue;
    const std::string value = key.isReference ? KeyTarget(instance, key) : KeyText(instance, key);
    joined += '\n' + std::to_string(value.size()) + ' ' + value;
  }
  return joined;
}

}  // namespace

bool TShortPaths::TClassPaths::IsUnique(const std::string& text) const {
  const auto counted = counts.find(std::hash<std::string>()(text));
  return counted != counts.end() && counted->second == 1;
}

const TShortPaths::TClassPaths& TShortPaths::PathsOf(const boost::shared_ptr<ICIMClass>& cimClass) {
  const auto known = classes_.find(cimClass);
  if (known != classes_.end()) return known->second;
  TClassPaths paths{ListInstanceKeys(*cimClass), {}};
  for (const auto& instance : ListInstances(*cimClass, false)) {
    std::set<std::string> texts{JoinOwnValues(*instance, paths.keys)};
    for (const TInstanceKey& key : paths.keys) {
      if (key.IsTelling()) texts.insert(KeyText(*instance, key));
    }
    for (const std::string& text : texts) ++paths.counts[std::hash<std::string>()(text)];
  }
  return classes_.emplace(cimClass, std::move(paths)).first->second;
}

std::string TShortPaths::ValueText(ICIMInstance& instance, const TInstanceKey& key) {
  if (!key.isReference) return KeyText(instance, key);
  const auto target = FindTarget(static_cast<TCIMReference>(ReadValue(instance, key.name)));
  return target ? PathText(*target) : KeyTarget(instance, key);
}

std::string TShortPaths::OwnKeysText(ICIMInstance& instance,
                                     const std::vector<TInstanceKey>& keys) {
  std::string text;
  for (const TInstanceKey& key : keys) {
    if (!key.isOwn) continue;
    text += text.empty() ? '.' : ',';
    text += key.name + '=' + QuoteIfNeeded(ValueText(instance, key));
  }
  return text;
}

std::string TShortPaths::PathText(ICIMInstance& instance) {
  const auto cimClass = instance.GetClass({});
  const TClassPaths& paths = PathsOf(cimClass);
  for (const TInstanceKey& key : paths.keys) {
    if (!key.IsTelling()) continue;
    const std::string value = KeyText(instance, key);
    if (paths.IsUnique(value)) return cimClass->GetName({}) + ':' + QuoteIfNeeded(value);
  }
  return paths.IsUnique(JoinOwnValues(instance, paths.keys))
             ? cimClass->GetName({}) + OwnKeysText(instance, paths.keys)
             : instance.GetReference({}).ToString();
}

std::string TShortPaths::For(ICIMInstance& instance) { return TText::OneLine(PathText(instance)); }

std::vector<std::string> TShortPaths::List(const TInstanceList& instances) {
  TShortPaths shortPaths;
  std::vector<std::string> paths;
  paths.reserve(instances.size());
  for (const auto& instance : instances) paths.push_back(shortPaths.For(*instance));
  std::sort(paths.begin(), paths.end(), [](const std::string& left, const std::string& right) {
    return CompareNatural(left, right) < 0;
  });
  return paths;
}

}  // namespace NZELVYR20
