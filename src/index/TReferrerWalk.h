#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "TInstanceTable.h"

namespace NZELVYR20 {

/// Walks over the instances of a table that may refer to `origin`, by the property of this role (a
/// normalized name) where there is one, in the order of their paths and with the promises of
/// TOrderedTable. All others are left out.
///
/// What the index knows is copied when the walk begins; what becomes a candidate later is told by
/// the index. So no change, however often it is made on the way, makes the walk look again at what
/// it has passed. Where the index cannot be relied upon, for want of memory or after a default has
/// changed, the walk looks at everything that is left.
class TReferrerWalk : public TReferenceIndex::TListener {
 public:
  /// What it does not follow it does not ask for ahead.
  TReferrerWalk(TInstanceTable& table, TIndexedInstance& origin, const std::string& roleKey,
                EFollows follows) noexcept;
  ~TReferrerWalk();

  /// The next instance, held; empty at the end.
  TInstanceTable::TPointer Next();

  /// Whether that instance is known to refer to the origin, by whatever role, and has no reference
  /// for which the host would have to be asked.
  bool IsCertain() const;

  /// The position of that instance's first reference to the origin as it was when it was found
  /// certain, whatever has changed since.
  std::size_t GetFirstReference() const;

  void Include(TInstanceEntry& entry) noexcept override;
  void NoteLoss(const TInstanceEntry& entry) noexcept override;
  void End() noexcept override;

 private:
  void Collect();
  bool IsIndexed() const;
  TInstanceEntry* TakeCandidate();
  TInstanceEntry* TakeIncluded();
  bool IsPassed(const TInstanceEntry& entry) const;
  std::size_t FindFirstReference() const;
  void PrefetchCandidates() const;

  TInstanceTable& table_;
  TIndexedInstance& origin_;
  const std::string& roleKey_;
  const EFollows follows_;
  const std::uint64_t limit_;
  TReferenceIndex::TCandidates candidates_;
  std::size_t next_ = 0;
  std::vector<TInstanceEntry*> included_;      ///< a heap, the first of all paths in front
  const TInstanceEntry* last_ = nullptr;       ///< that was handed out
  std::optional<std::size_t> firstReference_;  ///< of last_, before it lost one
  bool isMerged_ = false;  ///< something was included, be it for the second time
  bool isReliable_ = true;
  bool isSettled_ = false;  ///< all that the index knew, when the walk began
  std::optional<TInstanceTable::TCursor> everything_;
};

}  // namespace NZELVYR20
