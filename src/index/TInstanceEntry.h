#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "TReferences.h"

namespace NZELVYR20 {

class TIndexedInstance;

/// The place of an instance in the table of a class: the text of the path under which it was
/// added, whatever became of its keys since (rule 1).
struct TInstanceEntry {
  boost::shared_ptr<TIndexedInstance> instance;    ///< empty when the entry was taken out
  std::uint64_t serial = 0;                        ///< tells a walk what came after its start
  std::unique_ptr<TReferences> references;         ///< empty when it can have none
  TChain<TLinkedEnd, &TLinkedEnd::ofEntry> asEnd;  ///< of links that lead here, one in each index
  TChainLink ofInstance;                           ///< one may be added under several paths
  std::size_t hash = 0;                            ///< of the path
  TInstanceEntry* nextInBucket = nullptr;
  std::string path;
};

inline bool TReferrers::IsPathBefore(const TInstanceEntry* left, const TInstanceEntry* right) {
  return left->path < right->path;
}

inline TLinkedEnd::TLinkedEnd(TReferenceIndex& owner, TInstanceEntry& place) noexcept
    : index(owner), entry(place) {
  entry.asEnd.Add(*this);
}

inline TLinkedEnd::~TLinkedEnd() { entry.asEnd.Remove(*this); }

}  // namespace NZELVYR20
