#pragma once

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <utility>

#include "TChain.h"

namespace NZELVYR20 {

/// The one kind of collection in which namespaces, classes and declarations keep their elements:
/// shared elements in ascending order of their keys, walked by cursors that survive any change.
///
/// A walk visits each element that is there from its start until its turn exactly once, in order.
/// What is removed before its turn is not visited, nor is what was inserted since the walk began;
/// an element put in place of another is visited in the other's turn. The table must outlive its
/// cursors: whoever walks holds the table's owner.
template <class TKey, class TElement>
class TOrderedTable {
  struct TEntry {
    boost::shared_ptr<TElement> element;
    std::uint64_t serial;  ///< tells a cursor what came after it
  };
  using TEntries = std::map<TKey, TEntry, std::less<>>;

 public:
  using TPointer = boost::shared_ptr<TElement>;

  /// What a walk makes of elements that come after its place while it goes on.
  enum class EAdded { kSkipped, kVisited };

  /// Stands on the element that a walk has come to, or before the next one where that was removed.
  class TCursor {
   public:
    explicit TCursor(const TOrderedTable& table, EAdded added = EAdded::kSkipped)
        : table_(table),
          place_(table.entries_.begin()),
          lastSerial_(added == EAdded::kVisited ? kEverySerial : table.revision_) {
      table.cursors_.Add(*this);
    }

    TCursor(const TCursor&) = delete;
    TCursor& operator=(const TCursor&) = delete;

    ~TCursor() { table_.cursors_.Remove(*this); }

    /// The next element, held; empty at the end.
    TPointer Next() {
      return Next([](const TElement&) { return true; });
    }

    /// The next element that `matches`, which must not lead to a change of the table.
    template <class TMatches>
    TPointer Next(TMatches matches) {
      if (isOnPlace_) ++place_;
      for (isOnPlace_ = false; place_ != table_.entries_.end(); ++place_) {
        const TEntry& entry = place_->second;
        if (entry.serial > lastSerial_ || !matches(*entry.element)) continue;
        isOnPlace_ = true;
        return entry.element;
      }
      return TPointer();
    }

   private:
    friend class TOrderedTable;
    static constexpr std::uint64_t kEverySerial = ~std::uint64_t{0};

    void MoveTo(typename TEntries::const_iterator next) {
      place_ = next;
      isOnPlace_ = false;
    }

    const TOrderedTable& table_;
    typename TEntries::const_iterator place_;
    bool isOnPlace_ = false;  ///< else the element there is the next one
    std::uint64_t lastSerial_;
    TChainLink ofTable_;
  };

  /// Entries made ahead of a change: putting them in cannot fail, and so a change of several tables
  /// fails before the first of them or not at all.
  class TDraft {
   public:
    void Add(const TKey& key, const TPointer& element) {
      entries_.emplace(key, TEntry{element, 0});
    }

    /// Calls `visit(element)` for every entry.
    template <class TVisit>
    void ForEach(TVisit visit) const {
      for (const auto& entry : entries_) visit(*entry.second.element);
    }

    bool IsEmpty() const { return entries_.empty(); }

   private:
    friend class TOrderedTable;

    TEntries entries_;
  };

  /// One entry made ahead whose key is decided when it goes in.
  class TSpare {
   public:
    explicit TSpare(const TPointer& element) {
      TEntries made;
      made.emplace(TKey(), TEntry{element, 0});
      node_ = made.extract(made.begin());
    }

   private:
    friend class TOrderedTable;

    typename TEntries::node_type node_;
  };

  TOrderedTable() = default;
  TOrderedTable(const TOrderedTable&) = delete;
  TOrderedTable& operator=(const TOrderedTable&) = delete;
  ~TOrderedTable() = default;

  bool IsEmpty() const { return entries_.empty(); }

  /// Differs after every change from what it was before.
  std::uint64_t GetRevision() const { return revision_; }

  /// The element under the key; empty when there is none.
  template <class TLookup>
  TPointer Find(const TLookup& key) const {
    const auto entry = entries_.find(key);
    return entry == entries_.end() ? TPointer() : entry->second.element;
  }

  /// Inserts unless the key is taken; tells whether it did.
  bool Insert(const TKey& key, const TPointer& element) {
    const bool inserted = entries_.emplace(key, TEntry{element, revision_ + 1}).second;
    if (inserted) ++revision_;
    return inserted;
  }

  /// The same with an entry made ahead.
  bool Insert(TKey key, TSpare spare) noexcept {
    spare.node_.key() = std::move(key);
    spare.node_.mapped().serial = revision_ + 1;
    const bool inserted = entries_.insert(std::move(spare.node_)).inserted;
    if (inserted) ++revision_;
    return inserted;
  }

  /// Inserts, or puts the element in place of the one that is there. An allocation that fails
  /// leaves the table as it was.
  void Put(const TKey& key, TPointer element) {
    const auto entry = entries_.find(key);
    if (entry == entries_.end()) {
      Insert(key, element);
      return;
    }
    ++revision_;
    entry->second.element.swap(element);
  }

  /// Takes an element out; tells whether there was one. The element goes last, when the table is
  /// whole again.
  template <class TLookup>
  bool Erase(const TLookup& key) {
    return EraseEntry(entries_.find(key));
  }

  /// Takes out the first entry of which `matches(key, element)` is true; tells whether there was
  /// one.
  template <class TMatches>
  bool EraseFirst(TMatches matches) {
    const auto isMatch = [&](const auto& entry) {
      return matches(entry.first, *entry.second.element);
    };
    return EraseEntry(std::find_if(entries_.begin(), entries_.end(), isMatch));
  }

  void Clear() noexcept {
    TEntries removed;
    removed.swap(entries_);
    ++revision_;
    for (TCursor& cursor : cursors_) cursor.MoveTo(entries_.end());
  }

  /// Inserts what the draft has under keys that are free here.
  void Insert(TDraft draft) noexcept {
    if (draft.entries_.empty()) return;
    ++revision_;
    for (auto& made : draft.entries_) made.second.serial = revision_;
    entries_.merge(draft.entries_);
  }

  /// Puts what `replace(element)` returns in place of each element for which it returns one.
  template <class TReplace>
  void ReplaceEach(TReplace replace) {
    ++revision_;
    for (auto& [key, entry] : entries_) {
      TPointer replacement = replace(*entry.element);
      if (replacement) entry.element.swap(replacement);
    }
  }

  /// What the other table has under keys that are free here.
  TDraft GetMissing(const TOrderedTable& other) const {
    TDraft missing;
    for (const auto& [key, entry] : other.entries_) {
      if (entries_.find(key) == entries_.end()) missing.Add(key, entry.element);
    }
    return missing;
  }

  /// Calls `visit(key, element)` for every entry. For the repository's own use: `visit` must not
  /// lead to a change of this table.
  template <class TVisit>
  void ForEach(TVisit visit) const {
    for (const auto& [key, entry] : entries_) visit(key, entry.element);
  }

 private:
  bool EraseEntry(typename TEntries::const_iterator entry) {
    if (entry == entries_.end()) return false;
    for (TCursor& cursor : cursors_) {
      if (cursor.place_ == entry) cursor.MoveTo(std::next(entry));
    }
    ++revision_;
    const auto removed = entries_.extract(entry);
    return true;
  }

  TEntries entries_;
  std::uint64_t revision_ = 0;
  mutable TChain<TCursor, &TCursor::ofTable_> cursors_;
};

}  // namespace NZELVYR20
