#pragma once

#include <boost/container/small_vector.hpp>
#include <cstdint>

#include "TLinkedEnd.h"

namespace NZELVYR20 {

class ICIMClass;

/// What an index knows of the references of one association instance.
struct TReferences {
  /// Where a settled reference leads (rule 3).
  struct TLink {
    std::uint32_t position;  ///< of the property in its instance
    std::uint32_t slot;      ///< of the entry among the end's referrers; all to one end share it
    ICIMClass* referencedClass;  ///< held by the value (rule 4)
    TLinkedEnd* end;
  };
  static constexpr std::uint32_t kNoSlot = UINT32_MAX;

  explicit TReferences(TReferenceIndex& owner) : index(&owner) {}

  TReferenceIndex* index;
  boost::container::small_vector<TLink, 2> links;  ///< by position
  std::uint32_t unsettledSlot = kNoSlot;  ///< among the unsettled, if a reference has no link

  bool IsSettled() const { return unsettledSlot == kNoSlot; }

  /// The link of the reference in this position; empty where it has none.
  const TLink* FindLink(std::uint32_t position) const {
    for (const TLink& link : links) {
      if (link.position == position) return &link;
    }
    return nullptr;
  }

  const TLink* FindLinkTo(const TLinkedEnd& end) const {
    for (const TLink& link : links) {
      if (link.end == &end) return &link;
    }
    return nullptr;
  }
};

}  // namespace NZELVYR20
