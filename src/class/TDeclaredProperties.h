#pragma once

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Names.h"
#include "TInmemPropertyDecl.h"

namespace NZELVYR20 {

/// The property declarations of a class in one of its states, in ascending order of normalized
/// name. Immutable: all instances made in that state share it, and it keeps their declarations
/// alive when the class replaces or loses them.
class TDeclaredProperties {
 public:
  struct TEntry {
    std::string key;
    boost::shared_ptr<TInmemPropertyDecl> declaration;
  };

  explicit TDeclaredProperties(std::vector<TEntry> entries) : entries_(std::move(entries)) {}

  const std::vector<TEntry>& GetEntries() const { return entries_; }

  /// The position of a normalized name; the number of entries when it is not declared.
  std::size_t Find(std::string_view key) const {
    const auto isBefore = [](const TEntry& entry, std::string_view name) {
      return entry.key < name;
    };
    const auto entry = std::lower_bound(entries_.begin(), entries_.end(), key, isBefore);
    if (entry == entries_.end() || entry->key != key) return entries_.size();
    return static_cast<std::size_t>(entry - entries_.begin());
  }

  /// The same by a name as it was given, whatever its letter case.
  std::size_t FindName(const std::string& name) const { return Find(TFoldedName(name)); }

  /// Differs from before after a default was set.
  std::uint64_t GetDefaultsRevision() const {
    std::uint64_t revision = 0;
    for (const TEntry& entry : entries_) revision += entry.declaration->GetDefaultRevision();
    return revision;
  }

 private:
  const std::vector<TEntry> entries_;
};

}  // namespace NZELVYR20
