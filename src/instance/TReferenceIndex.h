#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "TReferences.h"

namespace NZELVYR20 {

class TDeclaredProperties;
class TInmemNamespace;

/// Tells which instances in the table of a class may refer to a given instance, without a look at
/// the others.
///
/// A path is resolved by the host, which may do so as it likes. An instance counts as settled once
/// every reference of it was seen to lead where the text of its path says, in the namespace of its
/// class; from then on the texts decide. All others are candidates of every walk, which tries each
/// time to settle them: so none is missed, however the host resolves it. A reference that is set
/// makes its instance unsettled again.
class TReferenceIndex {
 public:
  TReferenceIndex() = default;
  TReferenceIndex(const TReferenceIndex&) = delete;
  TReferenceIndex& operator=(const TReferenceIndex&) = delete;
  ~TReferenceIndex() = default;

  /// Takes an entry in, settled where `leads` tells all its references. A failure changes nothing.
  void Add(TInstanceEntry& entry, const TInmemInstance& instance, const TLeads& leads);

  /// The same for the instance that stands in the entry. On lack of memory the index is stale.
  void AddOrForget(TInstanceEntry& entry, const TLeads& leads) noexcept;

  /// Forgets the entry, in which the instance still stands.
  void Remove(TInstanceEntry& entry) noexcept;
  void Clear() noexcept;

  /// Makes the entry a candidate of every walk, until it is settled again.
  void Unsettle(TInstanceEntry& entry) noexcept;

  /// Settles an entry that is not; a failure changes nothing.
  void Settle(TInstanceEntry& entry, const TLeads& leads);

  /// Whether a walk by this role (a normalized name; empty for none) may rely on the index. Not
  /// while an instance that lacks the role's property is there.
  bool IsComplete(const std::string& roleKey) const;

  /// Whether the index needs to look at the entries again: a default that they may show has
  /// changed, or there was no memory.
  bool IsStale() const;
  /// Does so. After a failure the index stays stale.
  void Renew(const std::vector<std::unique_ptr<TInstanceEntry>>& entries);

  /// Between these a target that was found stays, be it dropped, unless the index is cleared.
  void BeginWalk() noexcept { ++walks_; }
  void EndWalk() noexcept;

  /// What a walk looks at.
  struct TCandidate {
    TInstanceEntry* entry = nullptr;     ///< empty at the end
    TReferenceTarget* target = nullptr;  ///< under which it is settled; empty where it is not

    // How the walk came there, good while the index was not cleared, the target is arranged as it
    // was, and the one entry of the instance from which the walk starts is the same.
    std::size_t slot = 0;
    std::uint64_t clearings = 0;
    std::uint64_t arrangement = 0;
    const TInstanceEntry* own = nullptr;
    std::uint64_t ownSerial = 0;
  };

  /// The candidate that comes first behind the path of `last` (empty: of all) among those that
  /// refer to `target` and those that are not settled; what came after `limit` is left out.
  /// `previous` is the candidate that stood at `last`. A walk that `followsEnds` will look at what
  /// the candidates' references lead to.
  TCandidate FindNext(const TInmemInstance& target, const TCandidate& previous,
                      const TInstanceEntry* last, std::uint64_t limit, bool followsEnds);

  static std::size_t GetHash(std::string_view path) { return std::hash<std::string_view>()(path); }

  /// The instance to which the target's path leads now; empty when there is none.
  static boost::shared_ptr<TInmemInstance> Follow(TReferenceTarget& target,
                                                  const TInmemNamespace& nameSpace);

 private:
  /// The instances that were made with one list of declarations.
  struct TMake {
    boost::shared_ptr<const TDeclaredProperties> declared;
    std::size_t count;
    std::uint64_t revision;  ///< of the defaults, when Add or Renew looked
  };

  void Join(const TInmemInstance& instance);
  void Leave(const TInmemInstance& instance) noexcept;
  void AddReferences(TInstanceEntry& entry, const TLeads& leads);
  std::uint32_t Enter(TInstanceEntry& entry, TReferenceTarget& target);
  void Detach(TInstanceEntry& entry) noexcept;
  TReferenceTarget* FindTarget(std::string_view path, std::size_t hash);
  TReferenceTarget* FindTarget(TInstanceEntry& own);
  bool GoesOn(const TCandidate& previous, const TInstanceEntry* own) const;
  TReferenceTarget& GetTarget(const TLead& lead);
  void Drop(TReferenceTarget& target) noexcept;
  void Erase(TReferenceTarget& target) noexcept;

  std::vector<TMake> makes_;
  std::unordered_multimap<std::size_t, TReferenceTarget>
      targets_;  ///< by the hashes of their paths
  std::unordered_set<std::string> classNames_;
  TEntrySet unsettled_;
  std::uint64_t clearings_ = 0;
  std::size_t walks_ = 0;               ///< going on: they rest on targets
  TReferenceTarget* unused_ = nullptr;  ///< dropped meanwhile
  bool isStale_ = false;
};

}  // namespace NZELVYR20
