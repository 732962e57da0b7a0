#pragma once

#include <boost/container/small_vector.hpp>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "TReferrers.h"

namespace NZELVYR20 {

class TInmemClass;
class TInmemInstance;
class TInstanceTable;
class TReferenceIndex;
class TReferenceTarget;
struct TInstanceEntry;

/// The place in which a namespace found an instance that it was asked for.
struct TStanding {
  boost::shared_ptr<const TInstanceTable> table;
  TInstanceEntry* entry = nullptr;  ///< good only while it is current
  std::uint64_t removals = 0;       ///< of the table, at that time

  /// Whether the instance stands there still, and the namespace would find it there.
  bool IsCurrent() const;
};

/// Where the references of an instance were found to lead while it was validated.
struct TFoundEnds {
  struct TEnd {
    std::uint32_t position = 0;  ///< of the property in its instance
    TStanding standing;
  };
  std::vector<TEnd> ends;
  std::uint64_t referenceChanges = 0;  ///< of the instance's class, before the first was resolved
};

/// The references of an association instance as the index of its table knows them.
struct TReferences {
  /// A settled reference: the own value of a property, of which it is known where it leads.
  struct TLink {
    std::uint32_t position;        ///< of the property in its instance
    std::uint32_t slot;            ///< of the entry among the target's referrers
    TInmemClass* referencedClass;  ///< held by the value
    TReferenceTarget* target;
  };
  static constexpr std::uint32_t kNoSlot = UINT32_MAX;

  explicit TReferences(TReferenceIndex& owner) : index(&owner) {}

  TReferenceIndex* index;
  boost::container::small_vector<TLink, 2> links;  ///< by position
  std::uint32_t unsettledSlot = kNoSlot;  ///< among the unsettled, if a reference has no link

  bool IsSettled() const { return unsettledSlot == kNoSlot; }

  const TLink* FindLink(std::uint32_t position) const {
    for (const TLink& link : links) {
      if (link.position == position) return &link;
    }
    return nullptr;
  }

  const TLink* FindLinkTo(const TReferenceTarget& target) const {
    for (const TLink& link : links) {
      if (link.target == &target) return &link;
    }
    return nullptr;
  }
};

/// The place of an instance in the table of a class: the text of the path under which it was
/// added, whatever became of its keys since.
struct TInstanceEntry {
  boost::shared_ptr<TInmemInstance> instance;  ///< empty when the entry was taken out
  std::uint64_t serial = 0;                    ///< tells a walk what came after its start
  std::unique_ptr<TReferences> references;     ///< empty when it has none
  TReferenceTarget* targets = nullptr;         ///< of links that lead here: one in each index
  TInstanceEntry* nextOfInstance = nullptr;    ///< an instance may be added under several paths
  std::size_t hash = 0;                        ///< of the path
  TInstanceEntry* nextInBucket = nullptr;
  std::string path;
};

inline bool TReferrers::IsPathBefore(const TInstanceEntry* left, const TInstanceEntry* right) {
  return left->path < right->path;
}

/// An entry to which settled references of one index lead, and the entries that have them.
class TReferenceTarget {
 public:
  TReferenceTarget(TReferenceIndex& index, TInstanceEntry& entry) noexcept
      : index_(&index), entry_(&entry), nextOfEntry_(entry.targets) {
    entry.targets = this;
  }
  TReferenceTarget(const TReferenceTarget&) = delete;
  TReferenceTarget& operator=(const TReferenceTarget&) = delete;

  ~TReferenceTarget() {
    TReferenceTarget** link = &entry_->targets;
    while (*link != this) link = &(*link)->nextOfEntry_;
    *link = nextOfEntry_;
  }

  TReferenceIndex& GetIndex() const { return *index_; }
  const TInstanceEntry& GetEntry() const { return *entry_; }
  TReferenceTarget* GetNextOfEntry() const { return nextOfEntry_; }

  /// The same entry stands there once, however many of its references lead here.
  TReferrers referrers;

 private:
  TReferenceIndex* const index_;
  TInstanceEntry* const entry_;
  TReferenceTarget* nextOfEntry_;
};

}  // namespace NZELVYR20
