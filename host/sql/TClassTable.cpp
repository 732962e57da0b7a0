#include "TClassTable.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <utility>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListAssociators.h"
#include "ListClasses.h"
#include "ReadValue.h"
#include "SqlValue.h"

namespace NZELVYR20 {
namespace {

constexpr int kPathColumn = 0;
constexpr int kClassColumn = 1;
/// Of properties, after these two.
constexpr int kFirstProperty = 2;

/// How many associations an instance may have, as far as plans are concerned.
constexpr sqlite3_int64 kUsualFan = 8;

/// The name, with as many "_" at its end as it takes to be none of the others.
std::string FreeName(std::string name, const std::vector<std::string>& others) {
  const auto isTaken = [&name](const std::string& other) {
    return CompareFolded(name, other) == 0;
  };
  while (std::any_of(others.begin(), others.end(), isTaken)) name += '_';
  return name;
}

/// An association's instance has as many ends as references, except where one leads nowhere.
bool HasDanglingReference(ICIMInstance& association) {
  std::size_t references = 0;
  for (const auto& property : ListProperties(association)) {
    if (property->GetValue({}).IsReference() && !property->GetValue({}).IsNull()) ++references;
  }
  return ListEnds(association).size() != references;
}

}  // namespace

TClassTable::TClassTable(boost::shared_ptr<ICIMClass> cimClass, TSqlPaths& paths)
    : sqlite3_vtab{}, class_(std::move(cimClass)), paths_(paths) {
  std::vector<std::string> properties;
  for (const auto& declaration : ListPropertyDecls(*class_)) {
    properties.push_back(declaration->GetName({}));
    types_.push_back(declaration->GetType({}));
  }
  names_ = {FreeName("path", properties), FreeName("class", properties)};
  names_.insert(names_.end(), properties.begin(), properties.end());
}

std::string TClassTable::GetDeclaration() const {
  std::string text = QuoteSqlName(names_[kPathColumn]) + " TEXT, " +
                     QuoteSqlName(names_[kClassColumn]) + " TEXT COLLATE NOCASE";
  for (std::size_t i = 0; i < types_.size(); ++i) {
    text += ", " + QuoteSqlName(names_[kFirstProperty + i]) + SqlTypeOf(types_[i]);
  }
  return text;
}

std::vector<std::string> TClassTable::ListReferences() const {
  std::vector<std::string> references;
  for (int column = 0; column < static_cast<int>(names_.size()); ++column) {
    if (IsReference(column)) references.push_back(names_[static_cast<std::size_t>(column)]);
  }
  return references;
}

bool TClassTable::IsReference(int column) const {
  return column >= kFirstProperty && types_[static_cast<std::size_t>(column) - kFirstProperty] ==
                                         TCIMValue::TCIMType::kReference;
}

std::optional<TClassTable::TPromise> TClassTable::FindPromise(sqlite3_index_info& info,
                                                              int constraint) {
  const auto& given = info.aConstraint[constraint];
  if (given.usable == 0 || given.op != SQLITE_INDEX_CONSTRAINT_EQ) return std::nullopt;
  const bool isExact = sqlite3_stricmp(sqlite3_vtab_collation(&info, constraint), "BINARY") == 0;
  if (given.iColumn == kPathColumn && isExact) return TPromise{kPath, 2, 1};
  if (given.iColumn == kClassColumn) {
    const auto some = static_cast<sqlite3_int64>(GetAll().size()) / 2 + 1;
    return TPromise{kClass, static_cast<double>(some) * 2, some};
  }
  if (!isExact || !IsReference(given.iColumn)) return std::nullopt;
  return TPromise{kReference + given.iColumn - kFirstProperty, kUsualFan * 2, kUsualFan};
}

void TClassTable::ChoosePlan(sqlite3_index_info& info) {
  const auto count = static_cast<sqlite3_int64>(GetAll().size());
  TPromise best{kAll, static_cast<double>(count) * 3 + 1, count};
  int chosen = -1;
  for (int i = 0; i < info.nConstraint; ++i) {
    const std::optional<TPromise> promise = FindPromise(info, i);
    if (!promise || (chosen >= 0 && promise->cost >= best.cost)) continue;
    best = *promise;
    chosen = i;
  }
  info.idxNum = best.plan;
  info.estimatedCost = best.cost;
  info.estimatedRows = best.rows;
  if (best.plan == kPath) info.idxFlags = SQLITE_INDEX_SCAN_UNIQUE;
  if (chosen < 0) return;
  info.aConstraintUsage[chosen].argvIndex = 1;
  // SQLite compares once more: what is found may be too much, and letter case counts in texts.
  const auto column = static_cast<std::size_t>(info.aConstraint[chosen].iColumn);
  info.idxStr = sqlite3_mprintf("%s=?", names_[column].c_str());
  info.needToFreeIdxStr = 1;
  if (info.idxStr == nullptr) throw std::bad_alloc();
}

const TInstanceList& TClassTable::GetAll() {
  if (!all_) all_ = ListInstances(*class_, true);
  return *all_;
}

TInstanceList TClassTable::Find(int plan, const std::string& text) {
  switch (plan) {
    case kPath:
      return FindByPath(text);
    case kClass:
      return FindByClass(text);
    default:
      return FindByReference(names_[static_cast<std::size_t>(plan) - kReference + kFirstProperty],
                             text);
  }
}

TInstanceList TClassTable::FindByPath(const std::string& path) const {
  const auto instance = paths_.Find(path);
  if (!instance || !instance->GetClass({})->IsSubclassOf(class_, {})) return {};
  return {instance};
}

TInstanceList TClassTable::FindByClass(const std::string& name) const {
  for (const auto& cimClass : WithDescendants({class_})) {
    if (CompareFolded(cimClass->GetName({}), name) == 0) return ListInstances(*cimClass, false);
  }
  return {};
}

/// What leads nowhere keeps its text, which no walk finds.
TInstanceList TClassTable::FindByReference(const std::string& role, const std::string& path) {
  const auto instance = paths_.Find(path);
  if (!instance) return GetDangling();
  return ListElements<boost::shared_ptr<ICIMInstance>>([&](const TCIMInstanceCallback& callback) {
    instance->EnumerateAssociationInstances(callback, class_->GetName({}), role, {});
  });
}

const TInstanceList& TClassTable::GetDangling() {
  if (!dangling_) {
    TInstanceList found;
    for (const auto& instance : GetAll()) {
      if (HasDanglingReference(*instance)) found.push_back(instance);
    }
    dangling_ = std::move(found);
  }
  return *dangling_;
}

sqlite3_int64 TClassTable::GetPosition(const ICIMInstance* instance) {
  if (positions_.empty()) {
    sqlite3_int64 position = 0;
    for (const auto& one : GetAll()) positions_.emplace(one.get(), ++position);
  }
  return positions_.at(instance);
}

void TClassTable::SetResult(sqlite3_context* result,
                            const boost::shared_ptr<ICIMInstance>& instance, int column) const {
  if (column == kPathColumn) return SetSqlText(result, paths_.TextOf(instance));
  if (column == kClassColumn) return SetSqlText(result, instance->GetClass({})->GetName({}));
  SetSqlValue(result, ReadValue(*instance, names_[static_cast<std::size_t>(column)]), paths_);
}

}  // namespace NZELVYR20
