#include "TReferenceIndex.h"

#include <algorithm>
#include <array>

#include "TDeclaredProperties.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

namespace {

/// What a walk will look at lies anywhere in memory: it is asked for at once, not piece by piece.
void PrefetchReferrers(const TEntrySet& entries, TEntrySet::const_iterator place) {
  std::array<const TInstanceEntry*, 8> ahead{};
  std::size_t count = 0;
  while (count < ahead.size() && place != entries.end()) {
    __builtin_prefetch(&(*place)->instance);
    ahead[count++] = *place++;
  }
  for (std::size_t i = 0; i < count; ++i) {
    __builtin_prefetch(ahead[i]->instance.get());
    __builtin_prefetch(ahead[i]->references.get());
  }
  for (std::size_t i = 0; i < count; ++i) {
    for (const auto& edge : ahead[i]->references->edges) __builtin_prefetch(edge.target);
  }
  for (std::size_t i = 0; i < count; ++i) {
    for (const auto& edge : ahead[i]->references->edges) __builtin_prefetch(edge.target->entry);
  }
}

TEntrySet::const_iterator GetBehind(const TEntrySet& entries, const TInstanceEntry* last) {
  return last ? entries.upper_bound(last->path) : entries.begin();
}

/// The first entry from `place` on that stands there since `limit` at the latest.
TInstanceEntry* SkipLater(const TEntrySet& entries, TEntrySet::const_iterator& place,
                          std::uint64_t limit) {
  while (place != entries.end() && (*place)->serial > limit) ++place;
  if (place == entries.end()) return nullptr;
  return *place;
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
  entry.references.reset(new TReferences{this, {}, true});
  ++revision_;
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
  ++revision_;
  unsettled_.erase(&entry);
  Detach(entry);
  entry.references.reset();
}

void TReferenceIndex::Clear() noexcept {
  ++revision_;
  makes_.clear();
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
  auto& edges = entry.references->edges;
  ++revision_;
  entry.references->areOwn = true;
  try {
    edges.reserve(leads.size());
    for (const TLead& lead : leads) {
      TReferenceTarget& target = GetTarget(lead);
      edges.push_back({lead.position, lead.referencedClass, &target});
      entry.references->areOwn &= lead.isOwn;
      target.referrers.insert(&entry);
    }
  } catch (...) {
    Detach(entry);
    throw;
  }
  unsettled_.erase(&entry);
}

void TReferenceIndex::Unsettle(TInstanceEntry& entry) noexcept {
  auto& edges = entry.references->edges;
  if (edges.empty()) return;
  ++revision_;
  unsettled_.insert(edges.front().target->referrers.extract(&entry));  // no allocation may fail
  Detach(entry);
}

/// The texts belong to one another as long as the host makes them: a path names its class.
TReferenceTarget& TReferenceIndex::GetTarget(const TLead& lead) {
  const std::size_t hash = GetHash(lead.path);
  if (TReferenceTarget* const known = FindTarget(lead.path, hash)) return *known;
  TReferenceTarget target;
  target.index = this;
  target.path = lead.path;
  target.className = &*classNames_.insert(lead.className).first;
  return targets_.emplace(hash, std::move(target))->second;
}

void TReferenceIndex::Detach(TInstanceEntry& entry) noexcept {
  auto& edges = entry.references->edges;
  while (!edges.empty()) {
    TReferenceTarget* const target = edges.back().target;
    edges.pop_back();
    target->referrers.erase(&entry);
    const auto leadsThere = [&](const TReferences::TEdge& edge) { return edge.target == target; };
    if (std::none_of(edges.begin(), edges.end(), leadsThere)) DropIfUnused(*target);
  }
}

void TReferenceIndex::DropIfUnused(TReferenceTarget& target) noexcept {
  if (!target.referrers.empty()) return;
  if (target.knownBy) target.knownBy->RemoveTarget(target);
  auto place = targets_.equal_range(GetHash(target.path)).first;
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
      std::find_if(first, last, [&](const auto& entry) { return entry.second.path == path; });
  return place == last ? nullptr : &place->second;
}

/// The target of the entry's path. The entry keeps it in mind.
TReferenceTarget* TReferenceIndex::FindTarget(TInstanceEntry& own) {
  for (TReferenceTarget* target = own.targets; target; target = target->nextOfEntry) {
    if (target->index == this) return target;
  }
  TReferenceTarget* const found = FindTarget(own.path, own.hash);
  if (found && !found->knownBy) own.AddTarget(*found);
  return found;
}

TReferenceIndex::TCandidate TReferenceIndex::FindNext(const TInmemInstance& target,
                                                      const TCandidate& previous,
                                                      const TInstanceEntry* last,
                                                      std::uint64_t limit) {
  TInstanceEntry* const first = target.GetEntries();
  const bool isSole = first && !first->nextOfInstance && unsettled_.empty();
  const bool goesOn = isSole && previous.target && previous.own == first &&
                      previous.ownSerial == first->serial && previous.revision == revision_;
  if (goesOn) {
    TCandidate next(previous);
    next.entry = SkipLater(next.target->referrers, ++next.place, limit);
    return next;
  }
  TCandidate next;
  auto place = GetBehind(unsettled_, last);
  next.entry = SkipLater(unsettled_, place, limit);
  for (TInstanceEntry* own = first; own; own = own->nextOfInstance) {
    TReferenceTarget* const known = FindTarget(*own);
    if (!known) continue;
    place = GetBehind(known->referrers, last);
    PrefetchReferrers(known->referrers, place);
    TInstanceEntry* const referrer = SkipLater(known->referrers, place, limit);
    const bool isFirst = referrer && (!next.entry || referrer->path < next.entry->path);
    if (isFirst) next = {referrer, known, place, first, first->serial, revision_};
  }
  return next;
}

boost::shared_ptr<TInmemInstance> TReferenceIndex::Follow(TReferenceTarget& target,
                                                          const TInmemNamespace& nameSpace) {
  if (!target.cimClass || target.classesRevision != nameSpace.GetClassesRevision()) {
    target.cimClass = nameSpace.FindClass(*target.className).get();
    target.classesRevision = nameSpace.GetClassesRevision();
    target.entry = nullptr;
  }
  if (!target.cimClass) return {};
  const TInstanceTable& instances = target.cimClass->GetInstances();
  if (!target.entry || target.removals != instances.GetRemovals()) {
    target.entry = instances.FindEntry(target.path);
    target.removals = instances.GetRemovals();
  }
  return target.entry ? target.entry->instance : boost::shared_ptr<TInmemInstance>();
}

}  // namespace NZELVYR20
