#include "CompareNamespaces.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "ClassRemarks.h"
#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ListClasses.h"
#include "NaturalOrder.h"
#include "TCIMReference.h"
#include "TInstanceReader.h"
#include "TMachineRename.h"
#include "TPrinter.h"

namespace NZELVYR20 {
namespace {

using TInstance = boost::shared_ptr<ICIMInstance>;

/// Of numbers two words of the standard say so; of the rest one of our own.
bool IsMomentary(const ICIMProperty& property) {
  constexpr std::array<const char*, 3> kMarks = {"Counter", "Gauge", "Momentary"};
  const auto declaration = property.GetDeclaration({});
  return std::any_of(kMarks.begin(), kMarks.end(), [&declaration](const char* mark) {
    bool isFound = false;
    const auto qualifier = declaration->GetQualifier(mark, isFound, {});
    return qualifier && qualifier->GetValue({}) == TCIMValue(true);
  });
}

/// Which classes go together, by their folded names.
std::map<std::string, TClassPair> PairClasses(ICIMNamespace& before, ICIMNamespace& after) {
  std::map<std::string, TClassPair> pairs;
  for (const auto& cimClass : ListAllClasses(before)) {
    pairs[FoldName(cimClass->GetName({}))].before = cimClass;
  }
  for (const auto& cimClass : ListAllClasses(after)) {
    pairs[FoldName(cimClass->GetName({}))].after = cimClass;
  }
  return pairs;
}

TInstanceList ListOwnInstances(const boost::shared_ptr<ICIMClass>& cimClass) {
  return cimClass ? ListInstances(*cimClass, false) : TInstanceList();
}

/// The path without the class, whose spelling does not count.
std::string KeysText(const ICIMInstance& instance) {
  const TCIMReference path = instance.GetReference({});
  return path.GetPath().substr(path.GetClassName().size());
}

class TComparer {
 public:
  explicit TComparer(const TMachineRename* rename) : rename_(rename) {}

  void Compare(const TClassPair& pair) {
    const TInstanceList before = ListOwnInstances(pair.before);
    const TInstanceList after = ListOwnInstances(pair.after);
    if (before.empty() && after.empty()) return;
    if (!AddRemarks(remarks_, pair, before.size() + after.size())) return;
    keys_ = TInstanceReader::ListKeyNames(*pair.after);
    Match(before, after);
  }

  TComparison TakeResult() {
    TComparison result;
    if (rename_ != nullptr) result.remarks.push_back(rename_->ToString());
    result.remarks.insert(result.remarks.end(), remarks_.begin(), remarks_.end());
    std::sort(changes_.begin(), changes_.end(), [](const auto& left, const auto& right) {
      return CompareNatural(left.path, right.path) < 0;
    });
    result.changes = std::move(changes_);
    return result;
  }

 private:
  std::string Map(std::string path) const {
    return rename_ == nullptr ? path : rename_->Map(std::move(path));
  }

  void Match(const TInstanceList& before, const TInstanceList& after) {
    std::unordered_map<std::string, TInstance> gone;
    for (const TInstance& instance : before) {
      if (!gone.emplace(Map(KeysText(*instance)), instance).second) AddChange(instance, {});
    }
    for (const TInstance& instance : after) {
      const auto found = gone.find(KeysText(*instance));
      if (found == gone.end()) {
        AddChange({}, instance);
        continue;
      }
      CompareInstances(found->second, instance);
      gone.erase(found);
    }
    for (const auto& [keys, instance] : gone) AddChange(instance, {});
  }

  void AddChange(const TInstance& before, const TInstance& after,
                 std::vector<TPropertyChange> properties = {}) {
    changes_.push_back(
        {TPrinter::PathText(after ? *after : *before), before, after, std::move(properties)});
  }

  /// Both have their properties in the order of their names.
  void CompareInstances(const TInstance& before, const TInstance& after) {
    const auto left = ListProperties(*before);
    const auto right = ListProperties(*after);
    std::vector<TPropertyChange> changes;
    for (std::size_t i = 0, j = 0; i < left.size() && j < right.size();) {
      const int order = CompareFolded(left[i]->GetDeclaration({})->GetName({}),
                                      right[j]->GetDeclaration({})->GetName({}));
      if (order == 0 && IsOther(*left[i], *right[j])) {
        changes.push_back({left[i], right[j], IsMomentary(*left[i]) || IsMomentary(*right[j])});
      }
      i += order <= 0 ? 1 : 0;
      j += order >= 0 ? 1 : 0;
    }
    if (!changes.empty()) AddChange(before, after, std::move(changes));
  }

  bool IsOther(const ICIMProperty& before, const ICIMProperty& after) const {
    const TCIMValue& left = before.GetValue({});
    const TCIMValue& right = after.GetValue({});
    if (left == right || before.GetType({}) != after.GetType({})) return false;
    if (keys_.count(TInstanceReader::NameOf(after)) > 0) return false;
    if (!left.IsReference() || left.IsNull() || right.IsNull()) return true;
    return Map(static_cast<TCIMReference>(left).GetPath()) !=
           static_cast<TCIMReference>(right).GetPath();
  }

  const TMachineRename* rename_;  ///< none: paths are compared as they are
  std::set<std::string> keys_;    ///< of the class that is being compared
  std::set<std::string> remarks_;
  std::vector<TInstanceChange> changes_;
};

}  // namespace

TComparison CompareNamespaces(ICIMNamespace& before, ICIMNamespace& after, EMatch match) {
  const TMachineRename rename(before, after);
  TComparer comparer(match == EMatch::kWithinMachine && rename.IsThere() ? &rename : nullptr);
  for (const auto& [name, pair] : PairClasses(before, after)) comparer.Compare(pair);
  return comparer.TakeResult();
}

}  // namespace NZELVYR20
