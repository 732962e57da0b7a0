#include "TShortPathFinder.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ListClasses.h"
#include "ListInstanceKeys.h"

namespace NZELVYR20 {
namespace {

/// By how well a value is met.
enum class EMatch { kNone, kFolded, kExact };

/// A given key, and the keys of one class that may have its value.
struct TWantedKey {
  std::vector<TInstanceKey> keys;
  std::string value;
  std::string target;  ///< where a reference is to lead
};

EMatch MatchKey(ICIMInstance& instance, const TInstanceKey& key, const TWantedKey& wanted) {
  if (key.isReference) {
    const bool isThere = !wanted.target.empty() && KeyTarget(instance, key) == wanted.target;
    return isThere ? EMatch::kExact : EMatch::kNone;
  }
  const std::string value = KeyText(instance, key);
  if (value == wanted.value) return EMatch::kExact;
  return CompareFolded(value, wanted.value) == 0 ? EMatch::kFolded : EMatch::kNone;
}

EMatch Match(ICIMInstance& instance, const std::vector<TWantedKey>& wanted) {
  EMatch all = EMatch::kExact;
  for (const TWantedKey& one : wanted) {
    EMatch best = EMatch::kNone;
    for (const TInstanceKey& key : one.keys) best = std::max(best, MatchKey(instance, key, one));
    all = std::min(all, best);
  }
  return all;
}

bool IsMeant(const TInstanceKey& key, const std::string& name) {
  return name.empty() ? key.IsTelling() : CompareFolded(key.name, name) == 0;
}

/// Empty where the class lacks one of the keys.
std::vector<TWantedKey> ListWanted(ICIMClass& cimClass, const std::vector<TGivenKey>& given) {
  const std::vector<TInstanceKey> keys = ListInstanceKeys(cimClass);
  std::vector<TWantedKey> wanted;
  for (const TGivenKey& one : given) {
    wanted.push_back({{}, one.value, {}});
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(wanted.back().keys),
                 [&one](const TInstanceKey& key) { return IsMeant(key, one.name); });
    if (wanted.back().keys.empty()) return {};
  }
  return wanted;
}

bool HasReference(const TWantedKey& wanted) {
  return std::any_of(wanted.keys.begin(), wanted.keys.end(),
                     [](const TInstanceKey& key) { return key.isReference; });
}

/// The very class's own instance, where there is one.
TInstanceList PreferOwn(const TInstanceList& found, const boost::shared_ptr<ICIMClass>& cimClass) {
  TInstanceList own;
  std::copy_if(found.begin(), found.end(), std::back_inserter(own),
               [&](const auto& instance) { return instance->GetClass({}) == cimClass; });
  return own.size() == 1 ? own : found;
}

}  // namespace

TShortPathFinder::TShortPathFinder(boost::shared_ptr<ICIMNamespace> nameSpace, TResolve resolve)
    : namespace_(std::move(nameSpace)), resolve_(std::move(resolve)) {}

void TShortPathFinder::AddMatches(ICIMClass& cimClass, const TShortPath& path,
                                  TMatches& matches) const {
  std::vector<TWantedKey> wanted = ListWanted(cimClass, path.keys);
  if (wanted.size() < path.keys.size()) return;
  const TInstanceList instances = ListInstances(cimClass, false);
  if (instances.empty()) return;
  for (TWantedKey& one : wanted) {
    if (HasReference(one)) one.target = resolve_(one.value);
  }
  for (const auto& instance : instances) {
    const EMatch match = Match(*instance, wanted);
    if (match == EMatch::kExact) matches.exact.push_back(instance);
    if (match == EMatch::kFolded) matches.folded.push_back(instance);
  }
}

TInstanceList TShortPathFinder::FindAs(const TShortPath& path) const {
  TMatches matches;
  for (const auto& cimClass :
       path.cimClass ? WithDescendants({path.cimClass}) : ListAllClasses(*namespace_)) {
    AddMatches(*cimClass, path, matches);
  }
  return PreferOwn(matches.exact.empty() ? matches.folded : matches.exact, path.cimClass);
}

TInstanceList TShortPathFinder::Find(const std::string& path) const {
  for (const TShortPath& reading : TShortPathReader(namespace_).Read(path)) {
    TInstanceList found = FindAs(reading);
    if (!found.empty()) return found;
  }
  return {};
}

}  // namespace NZELVYR20
