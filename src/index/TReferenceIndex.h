#pragma once

#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "TIndexedInstance.h"
#include "TStanding.h"

namespace NZELVYR20 {

/// Tells which instances in the table of a class may refer to a given instance, without a look at
/// the others.
///
/// The words:
/// - a *reference* is a property of an association instance whose value is a path, be it null;
/// - its *end* is the entry of the instance to which the path leads;
/// - a *link* is what the index knows of a reference: its end. A reference that has one is
///   *settled*;
/// - the *referrers* of an end are the entries with links to it;
/// - a *candidate* is an entry at which a walk from some instance, its *origin*, has to look.
///
/// The rules, to which the code refers by number:
///
/// 1. Entries belong to their table. One that is taken out stays, without instance, until no walk
///    goes on, and one whose table is cleared goes at once: walks are told first. An instance keeps
///    a list of its entries, and each of these holds the instance.
/// 2. A TLinkedEnd belongs to one index and one entry, comes with the first link to that entry and
///    goes with the last. An entry has at most one of each index.
/// 3. Where a path leads is for the host to say. A reference is settled only if the host had its
///    answer from the namespace itself: while it was asked, the namespace was asked for that very
///    path, and gave what the host then returned. Settled references are not resolved again: as
///    long as that instance stands where it was found the namespace would give it again, and a host
///    that passed the question on is trusted to go on doing so.
/// 4. A link lasts as long as the value and the end that it was made from: it goes *before* its
///    reference is set (Unsettle), since the value holds the class to which the link points, and
///    before the end's instance leaves its entry or the namespace no longer looks there
///    (UnsettleReferrers). Defaults are never settled, for they change unnoticed.
/// 5. An entry with a reference that has no link is among the unsettled. So the referrers of the
///    origin's entries, with all that are unsettled, are all that can refer to it: whoever does has
///    a link there, or none for that reference. None is missed, and those found in vain cost a
///    look.
/// 6. Counters tell what was found earlier from what holds now: `removals` of a table guards
///    standings, `changes` of a class what was found before its references were set, the revision
///    of the defaults which properties are references at all, an entry's `serial` what a walk may
///    meet.
/// 7. A walk rests on a copy of its candidates (TReferrerWalk) and hears of what becomes one later.
///    Referrers are put in order, and lose their gaps, only where a walk begins.
/// 8. Where memory is short the index is stale, or the walk unreliable, and that walk looks at
///    everything. What was not noted for want of memory is asked of the host again.
class TReferenceIndex {
 public:
  using TCandidates = boost::container::small_vector<TInstanceEntry*, 16>;

  /// A walk that goes on.
  class TListener {
   public:
    TListener() = default;
    TListener(const TListener&) = delete;
    TListener& operator=(const TListener&) = delete;

    /// An entry has become a candidate.
    virtual void Include(TInstanceEntry& entry) noexcept = 0;
    /// A link of the entry is about to go, or one of its references to become unsettled.
    virtual void NoteLoss(const TInstanceEntry& entry) noexcept = 0;
    /// All entries go.
    virtual void End() noexcept = 0;

    TChainLink ofIndex;

   protected:
    ~TListener() = default;
  };

  explicit TReferenceIndex(TCountReferences countReferences) : countReferences_(countReferences) {}
  TReferenceIndex(const TReferenceIndex&) = delete;
  TReferenceIndex& operator=(const TReferenceIndex&) = delete;
  ~TReferenceIndex() = default;

  /// Takes an entry in which `instance` is to stand, with links for what was found and still
  /// stands. A failure changes nothing.
  void Add(TInstanceEntry& entry, const TIndexedInstance& instance, const TFoundReferences& found);

  /// The same for the instance that stands in the entry. On lack of memory the index is stale.
  void AddOrForget(TInstanceEntry& entry, const TFoundReferences& found) noexcept;

  /// The instance in the entry was added once more.
  void Refresh(TInstanceEntry& entry, const TFoundReferences& found) noexcept;

  /// Forgets what the instance, which still stands in the entry, refers to.
  void Remove(TInstanceEntry& entry) noexcept;

  /// Forgets everything about the entries, which are all that there are.
  void Clear(const std::vector<std::unique_ptr<TInstanceEntry>>& entries) noexcept;

  /// Takes the links, of whatever index, that lead to the entry.
  static void UnsettleReferrers(TInstanceEntry& end) noexcept;

  /// Takes the link of the reference in this position, if it has one.
  void Unsettle(TInstanceEntry& entry, std::uint32_t position) noexcept;

  /// Gives the reference in this position, which has none, a link. A failure changes nothing.
  void Settle(TInstanceEntry& entry, std::uint32_t position, ICIMClass& referencedClass,
              TInstanceEntry& end);

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

  /// Appends, in the order of their paths, the entries that have links to an entry of `origin`, and
  /// all that have unsettled references.
  void Collect(TIndexedInstance& origin, TCandidates& candidates);

  /// The listener hears of changes until it is removed.
  void Add(TListener& walk) noexcept { walks_.Add(walk); }
  void Remove(TListener& walk) noexcept { walks_.Remove(walk); }
  bool HasWalks() const { return !walks_.IsEmpty(); }

  bool IsAllSettled() const { return unsettled_.IsEmpty(); }

 private:
  /// The instances that were made with one list of declarations.
  struct TMake {
    TDeclaredPointer declared;
    std::size_t count;
    std::uint64_t revision;  ///< of the defaults, when Add or Renew looked
  };

  void Join(const TIndexedInstance& instance);
  void Leave(const TIndexedInstance& instance) noexcept;
  void AddReferences(TInstanceEntry& entry, std::size_t count, const TFoundReferences& found);
  void Link(TInstanceEntry& entry, std::uint32_t position, ICIMClass& referencedClass,
            TInstanceEntry& end);
  static std::uint32_t AddReferrer(TLinkedEnd& end, TInstanceEntry& entry);
  void Unlink(TInstanceEntry& entry, const TReferences::TLink& link) noexcept;
  void UnlinkAll(TInstanceEntry& entry) noexcept;
  void UnlinkReferrers(TLinkedEnd& end) noexcept;
  void AddUnsettled(TInstanceEntry& entry);
  void AddUnsettledOrForget(TInstanceEntry& entry) noexcept;
  void RemoveUnsettled(TReferences& references) noexcept;
  void NoteLoss(const TInstanceEntry& entry) noexcept;
  bool AreAllLinked(const TInstanceEntry& entry) const;
  void TellWalks(TInstanceEntry& entry) noexcept;
  TLinkedEnd* FindEnd(TInstanceEntry& entry) const;

  const TCountReferences countReferences_;
  std::vector<TMake> makes_;
  TReferrers unsettled_;
  TChain<TListener, &TListener::ofIndex> walks_;
  bool isStale_ = false;
};

}  // namespace NZELVYR20
