#include "PathCandidates.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string_view>

#include "FoldName.h"
#include "ListClasses.h"
#include "ListInstanceKeys.h"
#include "NaturalOrder.h"
#include "TShortPathReader.h"
#include "TShortPaths.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

using TCounts = std::map<std::string, std::size_t>;

bool Begins(std::string_view text, std::string_view typed) {
  return CompareFolded(text.substr(0, typed.size()), typed) == 0;
}

bool HasTellingKey(const std::vector<TInstanceKey>& keys) {
  return std::any_of(keys.begin(), keys.end(),
                     [](const TInstanceKey& key) { return key.IsTelling(); });
}

/// Counts the values that begin so and tell the instances of one class apart.
void CountValues(const TInstanceList& instances, const std::vector<TInstanceKey>& keys,
                 const std::string& typed, TCounts& counts) {
  for (const auto& instance : instances) {
    for (const TInstanceKey& key : keys) {
      if (!key.IsTelling()) continue;
      const std::string value = KeyText(*instance, key);
      if (Begins(value, typed)) ++counts[TText::OneLine(value)];
    }
  }
}

/// What was counted once, as people count.
std::vector<std::string> ListSingle(const TCounts& counts) {
  std::vector<std::string> texts;
  for (const auto& [text, count] : counts) {
    if (count == 1) texts.push_back(text);
  }
  std::sort(texts.begin(), texts.end(), [](const std::string& left, const std::string& right) {
    return CompareNatural(left, right) < 0;
  });
  return texts;
}

std::vector<std::string> ListBeginnings(ICIMNamespace& nameSpace, const std::string& typed) {
  std::vector<std::string> candidates;
  TCounts values;
  for (const auto& cimClass : ListAllClasses(nameSpace)) {
    const TInstanceList instances = ListInstances(*cimClass, false);
    if (instances.empty()) continue;
    const std::vector<TInstanceKey> keys = ListInstanceKeys(*cimClass);
    const std::string name = cimClass->GetName({});
    if (Begins(name, typed)) candidates.push_back(name + (HasTellingKey(keys) ? ':' : '.'));
    if (!typed.empty()) CountValues(instances, keys, typed, values);
  }
  std::sort(candidates.begin(), candidates.end());
  const std::vector<std::string> single = ListSingle(values);
  candidates.insert(candidates.end(), single.begin(), single.end());
  return candidates;
}

/// The class's name stays as it was typed, also where it stands for subclasses; what several of
/// these have is not offered.
std::vector<std::string> ListPathsOf(ICIMClass& cimClass, const std::string& typed) {
  const std::string name = typed.substr(0, typed.find_first_of(":."));
  TCounts counts;
  for (const std::string& path : TShortPaths::List(ListInstances(cimClass, true))) {
    const std::string candidate =
        name + path.substr(std::min(path.find_first_of(":."), path.size()));
    if (Begins(candidate, typed)) ++counts[candidate];
  }
  return ListSingle(counts);
}

}  // namespace

std::vector<std::string> ListClassCandidates(ICIMNamespace& nameSpace, const std::string& typed) {
  std::vector<std::string> candidates;
  for (const std::string& name : ListClassNames(nameSpace)) {
    if (Begins(name, typed)) candidates.push_back(name);
  }
  std::sort(candidates.begin(), candidates.end());
  return candidates;
}

std::vector<std::string> ListPathCandidates(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                            const std::string& typed) {
  const TShortPathReader reader(nameSpace);
  const bool hasClass = typed.find_first_of(":.") != std::string::npos;
  if (const auto cimClass = reader.FindClass(typed); cimClass && hasClass) {
    return ListPathsOf(*cimClass, typed);
  }
  const std::vector<std::string> beginnings = ListBeginnings(*nameSpace, typed);
  const auto only = beginnings.size() == 1 ? reader.FindClass(beginnings.front())
                                           : boost::shared_ptr<ICIMClass>();
  return only ? ListPathsOf(*only, beginnings.front()) : beginnings;
}

}  // namespace NZELVYR20
