#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "TReferenceIndex.h"

namespace NZELVYR20 {

/// The instances of one class under the texts of their paths: found by hashing, walked in ascending
/// order of the texts. The order is made when a walk begins, from what came since the last one, so
/// that filling a table costs no comparisons.
///
/// A walk keeps the promises that TOrderedTable makes.
class TInstanceTable {
 public:
  using TPointer = boost::shared_ptr<TInmemInstance>;

  /// Stands before the instance that is next in a walk.
  class TCursor {
   public:
    explicit TCursor(const TInstanceTable& table);
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
    const TInstanceEntry* resume_ = nullptr;  ///< while the table is being arranged
    TCursor* nextCursor_;
  };

  /// Stands before the instance that is next among those that may refer to `target`, by the
  /// property of this role (a normalized name) where there is one. All others are left out. A walk
  /// that `followsEnds` will look at what their references lead to.
  class TReferrerCursor {
   public:
    struct TReferrer {
      TPointer instance;       ///< empty at the end
      bool isCertain = false;  ///< it does refer to the target, by whatever role
    };

    TReferrerCursor(TInstanceTable& table, const TInmemInstance& target, const std::string& roleKey,
                    bool followsEnds);
    TReferrerCursor(const TReferrerCursor&) = delete;
    TReferrerCursor& operator=(const TReferrerCursor&) = delete;
    ~TReferrerCursor();

    /// `nameSpace` is that of the table's class, if it still lives.
    TReferrer Next(const TInmemNamespace* nameSpace);

   private:
    void Advance();

    TInstanceTable& table_;
    const TInmemInstance& target_;
    const std::string& roleKey_;
    const bool followsEnds_;
    TReferenceIndex::TCandidate candidate_;
    const std::uint64_t limit_;
    const std::uint64_t clearings_;
  };

  TInstanceTable() = default;
  TInstanceTable(const TInstanceTable&) = delete;
  TInstanceTable& operator=(const TInstanceTable&) = delete;
  ~TInstanceTable();

  TInstanceEntry* FindEntry(std::string_view path) const;

  /// The instance under the path; empty when there is none.
  TPointer Find(std::string_view path) const;

  /// Inserts, or puts the instance in place of the one that is there. `leads` may tell where all
  /// its references lead; empty where that is not known. An allocation that fails leaves the table
  /// as it was.
  void Put(const std::string& path, const TPointer& instance, const TLeads& leads);

  /// Takes an instance out. It goes last, when the table is whole again.
  void Erase(std::string_view path);

  void Clear() noexcept;

  /// Differs from before after anything was taken out.
  std::uint64_t GetRemovals() const { return removals_; }

 private:
  using TOrder = std::vector<std::unique_ptr<TInstanceEntry>>;

  TInstanceEntry** FindLink(std::string_view path, std::size_t hash) const;
  void MakeRoom();
  void Insert(const std::string& path, std::size_t hash, const TPointer& instance,
              const TLeads& leads);
  void Replace(TInstanceEntry& entry, const TPointer& instance, const TLeads& leads);
  void Arrange() const noexcept;
  std::size_t GetPosition(const TInstanceEntry& entry) const;
  void DropRemoved() noexcept;  ///< once they are the greater part, and no walk rests on one
  TInstanceEntry* FindBehind(const TInstanceEntry* last, std::uint64_t limit) const;
  bool IsIndexed(const std::string& roleKey) noexcept;
  void TrySettle(const std::string& path) noexcept;

  /// A power of two of chains of entries by their hashes. Looking one up changes none.
  mutable std::vector<TInstanceEntry*> buckets_;
  mutable TOrder order_;              ///< all entries, those that were taken out, too, for a while
  mutable std::size_t arranged_ = 0;  ///< how many of them stand in order; the others came later
  std::size_t removed_ = 0;           ///< how many of them were taken out
  std::uint64_t serial_ = 0;
  std::uint64_t removals_ = 0;
  std::uint64_t clearings_ = 0;
  std::size_t referrerWalks_ = 0;  ///< going on: they rest on entries, be they taken out
  mutable TCursor* cursors_ = nullptr;
  TReferenceIndex references_;
};

}  // namespace NZELVYR20
