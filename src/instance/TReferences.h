#pragma once

#include <boost/container/small_vector.hpp>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "TReferenceTarget.h"

namespace NZELVYR20 {

class ICIMClass;
class TInmemClass;
class TInmemInstance;
class TReferenceIndex;
struct TInstanceEntry;

/// Where one reference of an instance leads: to the instance of that class under that path, in the
/// namespace of its own class.
struct TLead {
  std::uint32_t position;      ///< of the property in its instance
  bool isOwn;                  ///< rather than the declaration's default
  ICIMClass* referencedClass;  ///< held by the property's value
  std::string className;       ///< as the path gives it
  std::string path;            ///< its canonical text
};
using TLeads = std::vector<TLead>;

struct TEntryOrder {
  using is_transparent = void;
  bool operator()(const TInstanceEntry* left, const TInstanceEntry* right) const;
  bool operator()(const TInstanceEntry* left, const std::string& right) const;
  bool operator()(const std::string& left, const TInstanceEntry* right) const;
};
using TEntrySet = std::set<TInstanceEntry*, TEntryOrder>;

/// The references of an instance as the index of its class knows them.
struct TReferences {
  struct TEdge {
    std::uint32_t position;
    std::uint32_t slot;  ///< of the entry among the target's referrers
    ICIMClass* referencedClass;
    TReferenceTarget* target;
  };

  explicit TReferences(TReferenceIndex& owner) : index(&owner) {}

  TReferenceIndex* index;
  boost::container::small_vector<TEdge, 2> edges;  ///< by position
  bool areOwn = true;  ///< none of them is a default, which may change without notice

  bool IsSettled() const { return !edges.empty(); }

  const TEdge* FindEdgeTo(const TReferenceTarget& target) const {
    for (const TEdge& edge : edges) {
      if (edge.target == &target) return &edge;
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
  TReferenceTarget* targets = nullptr;         ///< of its path, in the indexes that have told
  TInstanceEntry* nextOfInstance = nullptr;    ///< an instance may be added under several paths
  std::size_t hash = 0;                        ///< of the path
  TInstanceEntry* nextInBucket = nullptr;
  std::string path;

  void AddTarget(TReferenceTarget& target) noexcept {
    target.nextOfEntry = targets;
    target.knownBy = this;
    targets = &target;
  }

  void RemoveTarget(TReferenceTarget& target) noexcept {
    TReferenceTarget** link = &targets;
    while (*link != &target) link = &(*link)->nextOfEntry;
    *link = target.nextOfEntry;
    target.knownBy = nullptr;
  }

  void RemoveTargets() noexcept {
    while (targets) RemoveTarget(*targets);
  }
};

inline bool TEntryOrder::operator()(const TInstanceEntry* left, const TInstanceEntry* right) const {
  return left->path < right->path;
}
inline bool TEntryOrder::operator()(const TInstanceEntry* left, const std::string& right) const {
  return left->path < right;
}
inline bool TEntryOrder::operator()(const std::string& left, const TInstanceEntry* right) const {
  return left < right->path;
}

}  // namespace NZELVYR20
