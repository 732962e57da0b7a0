#include "TReferenceIndex.h"

#include <algorithm>

#include "TDeclaredProperties.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

namespace {

/// The first entry of the set behind the path that stands there since `limit`.
TInstanceEntry* FirstBehind(const TEntrySet& entries, const std::string& path,
                            std::uint64_t limit) {
  auto entry = entries.upper_bound(path);
  while (entry != entries.end() && (*entry)->serial > limit) ++entry;
  return entry == entries.end() ? nullptr : *entry;
}

}  // namespace

void TReferenceIndex::Add(TInstanceEntry& entry, const TInmemInstance& instance,
                          const TLeads& leads) {
  Join(instance);
  if (!instance.HasReferences()) return;
  try {
    AddReferences(entry, leads);
  } catch (...) {
    Leave(instance);
    throw;
  }
}

void TReferenceIndex::AddReferences(TInstanceEntry& entry, const TLeads& leads) {
  entry.references.reset(new TReferences{this, {}});
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
  unsettled_.clear();
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
  try {
    edges.reserve(leads.size());
    for (const TLead& lead : leads) {
      TReferenceTarget& target = GetTarget(lead);
      edges.push_back({lead.position, &target});
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
  unsettled_.insert(edges.front().target->referrers.extract(&entry));  // no allocation may fail
  Detach(entry);
}

/// The texts belong to one another as long as the host makes them: a path names its class.
TReferenceTarget& TReferenceIndex::GetTarget(const TLead& lead) {
  const std::string& className = *classNames_.insert(lead.className).first;
  const auto [place, isNew] = targets_.try_emplace(lead.path);
  if (isNew) {
    place->second.path = &place->first;
    place->second.className = &className;
  }
  return place->second;
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
  if (target.referrers.empty()) targets_.erase(targets_.find(*target.path));
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

TInstanceEntry* TReferenceIndex::FindNext(const TInmemInstance& target, const std::string& last,
                                          std::uint64_t limit) const {
  TInstanceEntry* next = FirstBehind(unsettled_, last, limit);
  for (const TInstanceEntry* own = target.GetEntries(); own; own = own->nextOfInstance) {
    const auto place = targets_.find(own->path);
    if (place == targets_.end()) continue;
    TInstanceEntry* const referrer = FirstBehind(place->second.referrers, last, limit);
    if (referrer && (!next || referrer->path < next->path)) next = referrer;
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
    target.entry = instances.FindEntry(*target.path);
    target.removals = instances.GetRemovals();
  }
  return target.entry ? target.entry->instance : boost::shared_ptr<TInmemInstance>();
}

}  // namespace NZELVYR20
