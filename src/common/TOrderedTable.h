#pragma once

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
    /// `walk` may tell of which walk through several tables the cursor is.
    explicit TCursor(const TOrderedTable& table, EAdded added = EAdded::kSkipped,
                     const void* walk = nullptr)
        : table_(table),
          place_(table.entries_.begin()),
          lastSerial_(added == EAdded::kVisited ? kEverySerial : table.revision_),
          walk_(walk) {
      table.cursors_.Add(*this);
    }

    TCursor(const TCursor&) = delete;
    TCursor& operator=(const TCursor&) = delete;

    ~TCursor() { table_.cursors_.Remove(*this); }

    /// The next element, which is then the current one; empty at the end.
    const TPointer& Next() {
      return Next([](const TElement&) { return true; });
    }

    /// The next element that `matches`, which must not lead to a change of the table.
    template <class TMatches>
    const TPointer& Next(TMatches matches) {
      if (isOnPlace_) ++place_;
      isOnPlace_ = false;
      removed_.reset();  // with it may go what changes the table
      for (; place_ != table_.entries_.end(); ++place_) {
        const TEntry& entry = place_->second;
        if (entry.serial > lastSerial_ || !matches(*entry.element)) continue;
        isOnPlace_ = true;
        return entry.element;
      }
      return removed_;
    }

    /// What Next returned last. It is held: by the table as long as it stands there, since holding
    /// it once more would cost as much as the rest of a step, and from then on by the cursor.
    const TPointer& GetCurrent() const {
      return isOnPlace_ && !removed_ ? place_->second.element : removed_;
    }

   private:
    friend class TOrderedTable;
    static constexpr std::uint64_t kEverySerial = ~std::uint64_t{0};

    void HoldCurrent() { removed_ = GetCurrent(); }

    void MoveTo(typename TEntries::const_iterator next) {
      place_ = next;
      isOnPlace_ = false;
    }

    const TOrderedTable& table_;
    typename TEntries::const_iterator place_;
    bool isOnPlace_ = false;  ///< else the element there is the next one
    TPointer removed_;        ///< the current element where it is no longer on the place
    std::uint64_t lastSerial_;
    const void* walk_;
    TChainLink ofTable_;
  };

  /// Entries made ahead of a change: putting them in cannot fail, and so a change of several tables
  /// fails before the first of them or not at all.
  class TDraft {
   public:
    void Add(const TKey& key, const TPointer& element) {
      entries_.emplace_hint(entries_.end(), key, TEntry{element, 0});
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

  /// Whether a cursor of that walk is here; asked by the walk itself, whose cursors came after all
  /// that are not of a walk within it.
  bool IsEnteredBy(const void* walk) const {
    return !cursors_.IsEmpty() && cursors_.GetFirst().walk_ == walk;
  }

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
  void Put(TKey key, TPointer element) {
    const auto entry = entries_.lower_bound(key);
    if (entry == entries_.end() || key < entry->first) {
      entries_.emplace_hint(entry, std::move(key), TEntry{std::move(element), revision_ + 1});
    } else {
      Replace(entry, element);
    }
    ++revision_;
  }

  /// Takes an element out; tells whether there was one. The element goes last, when the table is
  /// whole again.
  template <class TLookup>
  bool Erase(const TLookup& key) {
    const auto entry = entries_.find(key);
    if (entry == entries_.end()) return false;
    for (TCursor& cursor : cursors_) {
      if (cursor.place_ != entry) continue;
      cursor.HoldCurrent();
      cursor.MoveTo(std::next(entry));
    }
    ++revision_;
    const auto removed = entries_.extract(entry);
    return true;
  }

  void Clear() noexcept {
    TEntries removed;
    removed.swap(entries_);
    ++revision_;
    for (TCursor& cursor : cursors_) {
      cursor.HoldCurrent();
      cursor.MoveTo(entries_.end());
    }
  }

  /// Inserts what the draft has under keys that are free here.
  void Insert(TDraft draft) noexcept {
    if (draft.entries_.empty()) return;
    ++revision_;
    for (auto& made : draft.entries_) made.second.serial = revision_;
    if (!entries_.empty()) return entries_.merge(draft.entries_);
    entries_.swap(draft.entries_);
    for (TCursor& cursor : cursors_) cursor.MoveTo(entries_.end());
  }

  /// Puts what `replace(element)` returns in place of each element for which it returns one.
  template <class TReplace>
  void ReplaceEach(TReplace replace) {
    ++revision_;
    for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
      TPointer replacement = replace(*entry->second.element);
      if (replacement) Replace(entry, replacement);
    }
  }

  /// What the other table has under keys that are free here.
  TDraft GetMissing(const TOrderedTable& other) const {
    TDraft missing;
    if (entries_.empty()) {
      missing.entries_ = other.entries_;  // at once, which compares no keys
      return missing;
    }
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
  void Replace(typename TEntries::iterator entry, TPointer& element) {
    for (TCursor& cursor : cursors_) {
      if (cursor.place_ == entry) cursor.HoldCurrent();
    }
    entry->second.element.swap(element);
  }

  TEntries entries_;
  std::uint64_t revision_ = 0;
  mutable TChain<TCursor, &TCursor::ofTable_> cursors_;
};

}  // namespace NZELVYR20
