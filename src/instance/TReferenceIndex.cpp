#include "TReferenceIndex.h"

#include <algorithm>
#include <utility>

#include "TDeclaredProperties.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

namespace {

/// Asks for an object that somebody holds, and for its count in front of it.
template <class TObject>
void PrefetchShared(const TObject* object) {
  constexpr std::ptrdiff_t kCount = 24;
  __builtin_prefetch(reinterpret_cast<const char*>(object) - kCount);
  __builtin_prefetch(reinterpret_cast<const char*>(object) + kCount);
}

/// What a walk will look at lies anywhere in memory: it is asked for at once, not piece by piece.
void PrefetchReferrers(const TReferenceTarget& target, std::size_t slot, bool withEnds) {
  constexpr std::size_t kAhead = 8;
  const auto& slots = target.GetSlots();
  const std::size_t end = std::min(slot + kAhead, slots.size());
  for (std::size_t i = slot; i < end; ++i) __builtin_prefetch(slots[i]);
  for (std::size_t i = slot; i < end; ++i) {
    PrefetchShared(slots[i]->instance.get());
    if (withEnds) __builtin_prefetch(slots[i]->references.get());
  }
  if (!withEnds) return;
  for (std::size_t i = slot; i < end; ++i) {
    for (const auto& edge : slots[i]->references->edges) __builtin_prefetch(edge.target);
  }
  for (std::size_t i = slot; i < end; ++i) {
    for (const auto& edge : slots[i]->references->edges) __builtin_prefetch(edge.target->entry);
  }
}

/// The first entry from `slot` on that stands there since `limit` at the latest.
TInstanceEntry* SkipLater(const TReferenceTarget& target, std::size_t& slot, std::uint64_t limit) {
  const auto& slots = target.GetSlots();
  while (slot < slots.size() && (!slots[slot] || slots[slot]->serial > limit)) ++slot;
  return slot < slots.size() ? slots[slot] : nullptr;
}

TInstanceEntry* FirstBehind(const TEntrySet& entries, const TInstanceEntry* last,
                            std::uint64_t limit) {
  auto place = last ? entries.upper_bound(last->path) : entries.begin();
  while (place != entries.end() && (*place)->serial > limit) ++place;
  return place == entries.end() ? nullptr : *place;
}

}  // namespace

void TReferenceIndex::Add(TInstanceEntry& entry, const TInmemInstance& instance,
                          const TLeads& leads) {
  Join(instance);
  if (!instance.MayHaveReferences()) return;
  try {
    AddReferences(entry, leads);
  } catch (...) {
    Leave(instance);
    throw;
  }
}

void TReferenceIndex::AddReferences(TInstanceEntry& entry, const TLeads& leads) {
  entry.references = std::make_unique<TReferences>(*this);
  try {
    unsettled_.insert(&entry);
    if (!leads.empty()) Settle(entry, leads);
  } catch (...) {
    unsettled_.erase(&entry);
    entry.references.reset();
    throw;
  }
}

void TReferenceIndex::AddOrForget(TInstanceEntry& entry, const TLeads& leads) noexcept {
  try {
    Add(entry, *entry.instance, leads);
  } catch (...) {
    isStale_ = true;
  }
}

void TReferenceIndex::Remove(TInstanceEntry& entry) noexcept {
  Leave(*entry.instance);
  if (!entry.references) return;
  unsettled_.erase(&entry);
  Detach(entry);
  entry.references.reset();
}

void TReferenceIndex::Clear() noexcept {
  makes_.clear();
  ++clearings_;
  unused_ = nullptr;
  unsettled_.clear();
  for (auto& [hash, target] : targets_) {
    if (target.knownBy) target.knownBy->RemoveTarget(target);
  }
  targets_.clear();
  classNames_.clear();
}

void TReferenceIndex::Join(const TInmemInstance& instance) {
  const auto& declared = instance.GetDeclared();
  for (TMake& make : makes_) {
    if (make.declared != declared) continue;
    ++make.count;
    return;
  }
  makes_.push_back({declared, 1, declared->GetDefaultsRevision()});
}

void TReferenceIndex::Leave(const TInmemInstance& instance) noexcept {
  const auto isOfIt = [&](const TMake& make) { return make.declared == instance.GetDeclared(); };
  const auto make = std::find_if(makes_.begin(), makes_.end(), isOfIt);
  if (make != makes_.end() && --make->count == 0) makes_.erase(make);
}

void TReferenceIndex::Settle(TInstanceEntry& entry, const TLeads& leads) {
  auto& references = *entry.references;
  references.areOwn = true;
  try {
    references.edges.reserve(leads.size());
    for (const TLead& lead : leads) {
      TReferenceTarget& target = GetTarget(lead);
      references.edges.push_back(
          {lead.position, Enter(entry, target), lead.referencedClass, &target});
      references.areOwn &= lead.isOwn;
    }
  } catch (...) {
    Detach(entry);
    throw;
  }
  unsettled_.erase(&entry);
}

/// Returns the entry's slot among the target's referrers.
std::uint32_t TReferenceIndex::Enter(TInstanceEntry& entry, TReferenceTarget& target) {
  if (const auto* const other = entry.references->FindEdgeTo(target)) return other->slot;
  try {
    return target.AddReferrer(entry);
  } catch (...) {
    if (!target.HasReferrers()) Drop(target);
    throw;
  }
}

void TReferenceIndex::Unsettle(TInstanceEntry& entry) noexcept {
  if (!entry.references->IsSettled()) return;
  Detach(entry);
  try {
    unsettled_.insert(&entry);
  } catch (...) {
    isStale_ = true;
  }
}

/// The texts belong to one another as long as the host makes them: a path names its class.
TReferenceTarget& TReferenceIndex::GetTarget(const TLead& lead) {
  const std::size_t hash = GetHash(lead.path);
  if (TReferenceTarget* const known = FindTarget(lead.path, hash)) return *known;
  const std::string& className = *classNames_.insert(lead.className).first;
  return targets_
      .emplace(std::piecewise_construct, std::forward_as_tuple(hash),
               std::forward_as_tuple(*this, lead.path, className))
      ->second;
}

void TReferenceIndex::Detach(TInstanceEntry& entry) noexcept {
  auto& references = *entry.references;
  while (!references.edges.empty()) {
    const TReferences::TEdge edge = references.edges.back();
    references.edges.pop_back();
    if (references.FindEdgeTo(*edge.target)) continue;
    edge.target->RemoveReferrer(edge.slot);
    if (!edge.target->HasReferrers()) Drop(*edge.target);
  }
}

void TReferenceIndex::Drop(TReferenceTarget& target) noexcept {
  if (walks_ == 0) return Erase(target);
  if (target.isUnused) return;
  target.isUnused = true;
  target.nextUnused = std::exchange(unused_, &target);
}

void TReferenceIndex::EndWalk() noexcept {
  if (--walks_ > 0) return;
  while (unused_) {
    TReferenceTarget& target = *std::exchange(unused_, unused_->nextUnused);
    target.isUnused = false;
    if (!target.HasReferrers()) Erase(target);
  }
}

void TReferenceIndex::Erase(TReferenceTarget& target) noexcept {
  if (target.knownBy) target.knownBy->RemoveTarget(target);
  auto place = targets_.equal_range(GetHash(target.GetPath())).first;
  while (&place->second != &target) ++place;
  targets_.erase(place);
}

bool TReferenceIndex::IsComplete(const std::string& roleKey) const {
  return roleKey.empty() || std::all_of(makes_.begin(), makes_.end(), [&](const TMake& make) {
           return make.declared->Find(roleKey) != make.declared->GetEntries().size();
         });
}

bool TReferenceIndex::IsStale() const {
  return isStale_ || std::any_of(makes_.begin(), makes_.end(), [](const TMake& make) {
           return make.revision != make.declared->GetDefaultsRevision();
         });
}

void TReferenceIndex::Renew(const std::vector<std::unique_ptr<TInstanceEntry>>& entries) {
  isStale_ = true;
  Clear();
  for (const auto& entry : entries) entry->references.reset();
  for (const auto& entry : entries) {
    if (entry->instance) Add(*entry, *entry->instance, {});
  }
  isStale_ = false;
}

TReferenceTarget* TReferenceIndex::FindTarget(std::string_view path, std::size_t hash) {
  const auto [first, last] = targets_.equal_range(hash);
  const auto place =
      std::find_if(first, last, [&](const auto& entry) { return entry.second.GetPath() == path; });
  return place == last ? nullptr : &place->second;
}

/// The target of the entry's path. The entry keeps it in mind.
TReferenceTarget* TReferenceIndex::FindTarget(TInstanceEntry& own) {
  for (TReferenceTarget* target = own.targets; target; target = target->nextOfEntry) {
    if (&target->GetIndex() == this) return target;
  }
  TReferenceTarget* const found = FindTarget(own.path, own.hash);
  if (found && !found->knownBy) own.AddTarget(*found);
  return found;
}

bool TReferenceIndex::GoesOn(const TCandidate& previous, const TInstanceEntry* own) const {
  return previous.target != nullptr && previous.clearings == clearings_ && unsettled_.empty() &&
         previous.target->IsArranged(previous.arrangement) && previous.own == own &&
         previous.ownSerial == own->serial && own->nextOfInstance == nullptr;
}

TReferenceIndex::TCandidate TReferenceIndex::FindNext(const TInmemInstance& target,
                                                      const TCandidate& previous,
                                                      const TInstanceEntry* last,
                                                      std::uint64_t limit, bool followsEnds) {
  TInstanceEntry* const first = target.GetEntries();
  if (first && GoesOn(previous, first)) {
    TCandidate next(previous);
    next.entry = SkipLater(*next.target, ++next.slot, limit);
    return next;
  }
  TCandidate next;
  next.entry = FirstBehind(unsettled_, last, limit);
  for (TInstanceEntry* own = first; own; own = own->nextOfInstance) {
    TReferenceTarget* const known = FindTarget(*own);
    if (!known) continue;
    std::size_t slot = known->FindBehind(last);
    PrefetchReferrers(*known, slot, followsEnds);
    TInstanceEntry* const referrer = SkipLater(*known, slot, limit);
    const bool isFirst =
        referrer != nullptr && (next.entry == nullptr || referrer->path < next.entry->path);
    if (isFirst) {
      next = {referrer, known, slot, clearings_, known->GetArrangement(), own, own->serial};
    }
  }
  return next;
}

boost::shared_ptr<TInmemInstance> TReferenceIndex::Follow(TReferenceTarget& target,
                                                          const TInmemNamespace& nameSpace) {
  if (!target.cimClass || target.classesRevision != nameSpace.GetClassesRevision()) {
    target.cimClass = nameSpace.FindClass(target.GetClassName()).get();
    target.classesRevision = nameSpace.GetClassesRevision();
    target.entry = nullptr;
  }
  if (!target.cimClass) return {};
  const TInstanceTable& instances = target.cimClass->GetInstances();
  if (!target.entry || target.removals != instances.GetRemovals()) {
    target.entry = instances.FindEntry(target.GetPath());
    target.removals = instances.GetRemovals();
  }
  return target.entry ? target.entry->instance : boost::shared_ptr<TInmemInstance>();
}

}  // namespace NZELVYR20
