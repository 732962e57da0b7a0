#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

#include "TReferences.h"

namespace NZELVYR20 {

class TIndexedInstance;

/// The place of an instance in the table of a class: the text of the path under which it was
/// added, whatever became of its keys since (rule 1). The text stands after the entry, in its
/// block.
struct TInstanceEntry {
  explicit TInstanceEntry(std::string_view path) noexcept : pathSize(path.size()) {
    path.copy(reinterpret_cast<char*>(this + 1), path.size());
  }
  TInstanceEntry(const TInstanceEntry&) = delete;
  TInstanceEntry& operator=(const TInstanceEntry&) = delete;
  ~TInstanceEntry() = default;

  static std::unique_ptr<TInstanceEntry> Make(std::string_view path) {
    return std::unique_ptr<TInstanceEntry>(new (path.size()) TInstanceEntry(path));
  }

  static void* operator new(std::size_t size, std::size_t room) {
    return ::operator new(size + room);
  }
  // NOLINTNEXTLINE(misc-new-delete-overloads): the one above is its match
  static void operator delete(void* entry) noexcept { ::operator delete(entry); }

  std::string_view GetPath() const { return {reinterpret_cast<const char*>(this + 1), pathSize}; }

  boost::shared_ptr<TIndexedInstance> instance;    ///< empty when the entry was taken out
  std::uint64_t serial = 0;                        ///< tells a walk what came after its start
  std::unique_ptr<TReferences> references;         ///< empty when it can have none
  TChain<TLinkedEnd, &TLinkedEnd::ofEntry> asEnd;  ///< of links that lead here, one in each index
  TChainLink ofInstance;                           ///< one may be added under several paths
  std::size_t hash = 0;                            ///< of the path
  TInstanceEntry* nextInBucket = nullptr;
  const std::size_t pathSize;
};

inline bool TReferrers::IsPathBefore(const TInstanceEntry* left, const TInstanceEntry* right) {
  return left->GetPath() < right->GetPath();
}

inline TLinkedEnd::TLinkedEnd(TReferenceIndex& owner, TInstanceEntry& place) noexcept
    : index(owner), entry(place) {
  entry.asEnd.Add(*this);
}

inline TLinkedEnd::~TLinkedEnd() { entry.asEnd.Remove(*this); }

}  // namespace NZELVYR20
