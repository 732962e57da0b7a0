#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "TReferenceIndex.h"

namespace NZELVYR20 {

/// The instances of one class under the texts of their paths: found by hashing, walked in ascending
/// order of the texts. The order is made when a walk begins, from what came since the last one, so
/// that filling a table costs no comparisons.
///
/// A walk keeps the promises that TOrderedTable makes. TReferenceIndex.h has the rules to which the
/// numbers refer.
class TInstanceTable {
 public:
  using TPointer = boost::shared_ptr<TIndexedInstance>;

  /// Stands before the instance that is next in a walk.
  class TCursor {
   public:
    explicit TCursor(const TInstanceTable& table);
    /// After this entry (empty: at the beginning), for what came no later than `limit`.
    TCursor(const TInstanceTable& table, const TInstanceEntry* last, std::uint64_t limit);
    TCursor(const TCursor&) = delete;
    TCursor& operator=(const TCursor&) = delete;
    ~TCursor();

    /// The next instance, held; empty at the end.
    TPointer Next();

   private:
    friend class TInstanceTable;

    const TInstanceTable& table_;
    std::size_t next_ = 0;
    const std::uint64_t limit_;
    const TInstanceEntry* resume_ = nullptr;  ///< while the table is being sorted
    TChainLink ofTable_;
  };

  explicit TInstanceTable(TCountReferences countReferences) : index_(countReferences) {}
  TInstanceTable(const TInstanceTable&) = delete;
  TInstanceTable& operator=(const TInstanceTable&) = delete;
  ~TInstanceTable();

  TInstanceEntry* FindEntry(std::string_view path) const;

  /// The instance under the path; empty when there is none.
  TPointer Find(std::string_view path) const;

  /// Inserts, or puts the instance in place of the one that is there. `found` may tell where its
  /// references lead. An allocation that fails leaves the table as it was.
  void Put(std::string_view path, const TPointer& instance, const TFoundReferences& found);

  /// Takes an instance out. It goes last, when the table is whole again.
  void Erase(std::string_view path);

  void Clear() noexcept;

  /// The namespace no longer finds the instances here, although they stay.
  void LoseStanding() noexcept;

  /// Differs from before after an instance no longer stands where it stood.
  std::uint64_t GetRemovals() const { return removals_; }

  /// Calls `visit(entry)` for every entry that holds an instance.
  template <class TVisit>
  void ForEach(TVisit visit) const {
    for (const auto& entry : order_) {
      if (entry->instance) visit(*entry);
    }
  }

  // For walks along associations.

  TReferenceIndex& GetIndex() { return index_; }
  const TReferenceIndex& GetIndex() const { return index_; }
  /// Looks at the entries again if the index has to. Fails for lack of memory.
  void RenewIndex();
  /// As long as a walk goes on entries stay, be they taken out, unless all go (rule 1).
  void BeginWalk(TReferenceIndex::TListener& walk) noexcept { index_.Add(walk); }
  void EndWalk(TReferenceIndex::TListener& walk) noexcept;
  /// Of the entry that came last.
  std::uint64_t GetSerial() const { return serial_; }

 private:
  using TOrder = std::vector<std::unique_ptr<TInstanceEntry>>;

  TInstanceEntry*& GetChain(std::size_t hash) const {
    return buckets_[hash & (buckets_.size() - 1)];
  }
  TInstanceEntry** FindPlace(std::string_view path, std::size_t hash) const;
  void MakeRoom();
  void Insert(std::string_view path, std::size_t hash, const TPointer& instance,
              const TFoundReferences& found);
  void Replace(TInstanceEntry& entry, const TPointer& instance, const TFoundReferences& found);
  void Sort() const noexcept;
  std::size_t GetPosition(const TInstanceEntry& entry) const;
  void DropRemoved() noexcept;  ///< once they are the greater part (rule 1)

  /// A power of two of chains of entries by their hashes. Looking one up changes none.
  mutable std::vector<TInstanceEntry*> buckets_;
  mutable TOrder order_;            ///< all entries, those that were taken out, too, for a while
  mutable std::size_t sorted_ = 0;  ///< how many of them stand in order; the others came later
  std::size_t removed_ = 0;         ///< how many of them were taken out
  std::uint64_t serial_ = 0;
  std::uint64_t removals_ = 0;
  mutable TChain<TCursor, &TCursor::ofTable_> cursors_;
  TReferenceIndex index_;
};

}  // namespace NZELVYR20
