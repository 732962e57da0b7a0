#pragma once

#include <boost/container/small_vector.hpp>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "TDeclaredProperties.h"
#include "TReferences.h"

namespace NZELVYR20 {

class TReferrerWalk;

/// Tells which instances in the table of a class may refer to a given instance, without a look at
/// the others.
///
/// A path is resolved by the host, which may do so as it likes. A reference counts as settled, and
/// has a link, when the host had its answer from the namespace itself: it asked for that very path
/// and returned the instance that it was given. As long as that instance stands where it was found
/// the host is not asked again. Everything else is unsettled, and asked for in every walk that
/// comes to it:
/// - what the host answers by itself, what leads nowhere or into another namespace;
/// - a default: it may change without notice;
/// - a reference that was set since, or whose end no longer stands where it was found.
/// An entry with an unsettled reference is a candidate of every walk, so that none is missed.
class TReferenceIndex {
 public:
  using TCandidates = boost::container::small_vector<TInstanceEntry*, 16>;

  TReferenceIndex() = default;
  TReferenceIndex(const TReferenceIndex&) = delete;
  TReferenceIndex& operator=(const TReferenceIndex&) = delete;
  ~TReferenceIndex() = default;

  /// Takes an entry in, with links to those ends that are current. A failure changes nothing.
  void Add(TInstanceEntry& entry, const TInmemInstance& instance, const TFoundEnds& found);

  /// The same for the instance that stands in the entry. On lack of memory the index is stale.
  void AddOrForget(TInstanceEntry& entry, const TFoundEnds& found) noexcept;

  /// The instance in the entry was added once more.
  void Refresh(TInstanceEntry& entry, const TFoundEnds& found) noexcept;

  /// Forgets what the instance, which still stands in the entry, refers to.
  void Remove(TInstanceEntry& entry) noexcept;

  /// Forgets everything about the entries, which are all that there are.
  void Clear(const std::vector<std::unique_ptr<TInstanceEntry>>& entries) noexcept;

  /// Unsettles all references, in whatever index, that lead to the entry.
  static void ForgetEnd(TInstanceEntry& end) noexcept;

  /// Unsettles the reference in this position, if it was settled.
  void Unsettle(TInstanceEntry& entry, std::uint32_t position) noexcept;

  /// Gives the reference in this position, which has none, a link. A failure changes nothing.
  void Settle(TInstanceEntry& entry, std::uint32_t position, TInstanceEntry& end);

  /// Takes the entry out of the unsettled if all its references have links.
  void NoteIfSettled(TInstanceEntry& entry) noexcept;

  /// Whether a walk by this role (a normalized name; empty for none) may rely on the index. Not
  /// while an instance that lacks the role's property is there.
  bool IsComplete(const std::string& roleKey) const;

  /// Whether the index needs to look at the entries again: a default that they may show has
  /// changed, so that other properties may be references now, or there was no memory.
  bool IsStale() const;

  /// Does so. After a failure the index stays stale.
  void Renew(const std::vector<std::unique_ptr<TInstanceEntry>>& entries);

  /// Appends, in the order of their paths, the entries that have links to an entry of `target`, and
  /// all that have unsettled references.
  void Collect(const TInmemInstance& target, TCandidates& candidates);

  /// Walks hear of entries that become candidates meanwhile.
  void BeginWalk(TReferrerWalk& walk) noexcept;
  void EndWalk(const TReferrerWalk& walk) noexcept;
  bool HasWalks() const { return walks_ != nullptr; }

  /// Differs from before after a link is gone or a reference has become unsettled.
  std::uint64_t GetLosses() const { return losses_; }
  bool IsAllSettled() const { return unsettled_.IsEmpty(); }

 private:
  /// The instances that were made with one list of declarations.
  struct TMake {
    TDeclaredPointer declared;
    std::size_t count;
    std::uint64_t revision;  ///< of the defaults, when Add or Renew looked
  };

  void Join(const TInmemInstance& instance);
  void Leave(const TInmemInstance& instance) noexcept;
  void AddReferences(TInstanceEntry& entry, const TInmemInstance& instance,
                     const TFoundEnds& found);
  void Link(TReferences& references, TInstanceEntry& entry, std::uint32_t position,
            TInmemClass& referencedClass, TInstanceEntry& end);
  static std::uint32_t AddReferrer(TReferenceTarget& target, TInstanceEntry& entry,
                                   const TReferences& references);
  void Unlink(TInstanceEntry& entry, const TReferences::TLink& link) noexcept;
  void UnlinkAll(TInstanceEntry& entry) noexcept;
  void ForgetTarget(TReferenceTarget& target) noexcept;
  void AddUnsettled(TInstanceEntry& entry);
  void AddUnsettledOrForget(TInstanceEntry& entry) noexcept;
  void RemoveUnsettled(TReferences& references) noexcept;
  void NoteLoss(const TInstanceEntry& entry) noexcept;
  void TellWalks(TInstanceEntry& entry) const noexcept;
  TReferenceTarget* FindTarget(const TInstanceEntry& end) const;

  std::vector<TMake> makes_;
  TReferrers unsettled_;
  std::uint64_t losses_ = 0;
  TReferrerWalk* walks_ = nullptr;
  bool isStale_ = false;
};

}  // namespace NZELVYR20
