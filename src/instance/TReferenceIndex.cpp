#include "TReferenceIndex.h"

#include <algorithm>

#include "TInmemInstance.h"
#include "TReferrerWalk.h"

namespace NZELVYR20 {

namespace {

void SetUnsettledSlot(TInstanceEntry& entry, std::uint32_t slot) {
  entry.references->unsettledSlot = slot;
}

/// All links to one target share a slot.
auto SlotSetter(const TReferenceTarget& target) {
  return [&target](TInstanceEntry& entry, std::uint32_t slot) {
    for (TReferences::TLink& link : entry.references->links) {
      if (link.target == &target) link.slot = slot;
    }
  };
}

void Append(const TReferrers& referrers, TReferenceIndex::TCandidates& candidates) {
  const auto& slots = referrers.GetSlots();
  const auto before = static_cast<std::ptrdiff_t>(candidates.size());
  candidates.insert(candidates.end(), slots.begin(), slots.end());
  std::inplace_merge(candidates.begin(), candidates.begin() + before, candidates.end(),
                     TReferrers::IsPathBefore);
}

}  // namespace

void TReferenceIndex::Add(TInstanceEntry& entry, const TInmemInstance& instance,
                          const TFoundEnds& found) {
  Join(instance);
  if (!instance.MayHaveReferences()) return;
  try {
    AddReferences(entry, instance, found);
  } catch (...) {
    Leave(instance);
    throw;
  }
  TellWalks(entry);
}

void TReferenceIndex::AddReferences(TInstanceEntry& entry, const TInmemInstance& instance,
                                    const TFoundEnds& found) {
  auto references = std::make_unique<TReferences>(*this);
  entry.references.swap(references);
  try {
    entry.references->links.reserve(found.ends.size());
    for (const auto& end : found.ends) {
      TInmemClass* const referencedClass = instance.FindReferencedClass(end.position);
      if (!referencedClass || !end.standing.IsCurrent()) continue;
      Link(*entry.references, entry, end.position, *referencedClass, *end.standing.entry);
    }
    if (!instance.AreAllLinked(*entry.references)) AddUnsettled(entry);
  } catch (...) {
    UnlinkAll(entry);
    entry.references.reset();
    throw;
  }
}

void TReferenceIndex::AddOrForget(TInstanceEntry& entry, const TFoundEnds& found) noexcept {
  try {
    Add(entry, *entry.instance, found);
  } catch (...) {
    isStale_ = true;
  }
}

void TReferenceIndex::Refresh(TInstanceEntry& entry, const TFoundEnds& found) noexcept {
  if (!entry.references) return;
  try {
    for (const auto& end : found.ends) {
      if (entry.references->FindLink(end.position) || !end.standing.IsCurrent()) continue;
      Settle(entry, end.position, *end.standing.entry);
    }
  } catch (...) {
    // What has no link is asked for in the next walk.
  }
}

void TReferenceIndex::Remove(TInstanceEntry& entry) noexcept {
  Leave(*entry.instance);
  if (!entry.references) return;
  RemoveUnsettled(*entry.references);
  UnlinkAll(entry);
  entry.references.reset();
}

void TReferenceIndex::Clear(const std::vector<std::unique_ptr<TInstanceEntry>>& entries) noexcept {
  makes_.clear();
  unsettled_.Clear();
  isStale_ = false;
  for (const auto& entry : entries) {
    if (entry->references) UnlinkAll(*entry);
    entry->references.reset();
  }
  for (TReferrerWalk* walk = walks_; walk; walk = walk->GetNextWalk()) walk->End();
}

void TReferenceIndex::ForgetEnd(TInstanceEntry& end) noexcept {
  while (end.targets) end.targets->GetIndex().ForgetTarget(*end.targets);
}

void TReferenceIndex::ForgetTarget(TReferenceTarget& target) noexcept {
  for (TInstanceEntry* const referrer : target.referrers.GetSlots()) {
    if (!referrer) continue;
    NoteLoss(*referrer);
    auto& links = referrer->references->links;
    const auto leadsThere = [&](const TReferences::TLink& link) { return link.target == &target; };
    links.erase(std::remove_if(links.begin(), links.end(), leadsThere), links.end());
    AddUnsettledOrForget(*referrer);
  }
  delete &target;
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

void TReferenceIndex::Settle(TInstanceEntry& entry, std::uint32_t position, TInstanceEntry& end) {
  TInmemClass* const referencedClass = entry.instance->FindReferencedClass(position);
  if (!referencedClass) return;
  Link(*entry.references, entry, position, *referencedClass, end);
  NoteIfSettled(entry);
}

void TReferenceIndex::NoteIfSettled(TInstanceEntry& entry) noexcept {
  TReferences& references = *entry.references;
  if (entry.instance->AreAllLinked(references)) RemoveUnsettled(references);
}

void TReferenceIndex::Unsettle(TInstanceEntry& entry, std::uint32_t position) noexcept {
  if (const auto* const link = entry.references->FindLink(position)) Unlink(entry, *link);
  AddUnsettledOrForget(entry);
}

void TReferenceIndex::Link(TReferences& references, TInstanceEntry& entry, std::uint32_t position,
                           TInmemClass& referencedClass, TInstanceEntry& end) {
  auto& links = references.links;
  links.reserve(links.size() + 1);
  TReferenceTarget* target = FindTarget(end);
  if (!target) target = new TReferenceTarget(*this, end);
  const std::uint32_t slot = AddReferrer(*target, entry, references);
  const auto isBefore = [&](const TReferences::TLink& link) { return link.position < position; };
  links.insert(std::find_if_not(links.begin(), links.end(), isBefore),
               {position, slot, &referencedClass, target});
}

/// Returns the entry's slot among the target's referrers.
std::uint32_t TReferenceIndex::AddReferrer(TReferenceTarget& target, TInstanceEntry& entry,
                                           const TReferences& references) {
  if (const auto* const other = references.FindLinkTo(target)) return other->slot;
  try {
    return target.referrers.Add(entry, SlotSetter(target));
  } catch (...) {
    if (target.referrers.IsEmpty()) delete &target;
    throw;
  }
}

void TReferenceIndex::Unlink(TInstanceEntry& entry, const TReferences::TLink& link) noexcept {
  NoteLoss(entry);
  TReferences& references = *entry.references;
  const TReferences::TLink gone = link;
  references.links.erase(references.links.begin() + (&link - references.links.data()));
  if (references.FindLinkTo(*gone.target)) return;
  gone.target->referrers.Remove(gone.slot);
  if (gone.target->referrers.IsEmpty()) delete gone.target;
}

void TReferenceIndex::UnlinkAll(TInstanceEntry& entry) noexcept {
  while (!entry.references->links.empty()) Unlink(entry, entry.references->links.back());
}

void TReferenceIndex::AddUnsettled(TInstanceEntry& entry) {
  NoteLoss(entry);
  TReferences& references = *entry.references;
  if (references.IsSettled()) references.unsettledSlot = unsettled_.Add(entry, SetUnsettledSlot);
}

void TReferenceIndex::AddUnsettledOrForget(TInstanceEntry& entry) noexcept {
  try {
    AddUnsettled(entry);
  } catch (...) {
    isStale_ = true;
  }
  TellWalks(entry);
}

void TReferenceIndex::RemoveUnsettled(TReferences& references) noexcept {
  if (references.IsSettled()) return;
  unsettled_.Remove(references.unsettledSlot);
  references.unsettledSlot = TReferences::kNoSlot;
}

void TReferenceIndex::NoteLoss(const TInstanceEntry& entry) noexcept {
  ++losses_;
  for (TReferrerWalk* walk = walks_; walk; walk = walk->GetNextWalk()) walk->NoteLoss(entry);
}

void TReferenceIndex::TellWalks(TInstanceEntry& entry) const noexcept {
  for (TReferrerWalk* walk = walks_; walk; walk = walk->GetNextWalk()) walk->Include(entry);
}

TReferenceTarget* TReferenceIndex::FindTarget(const TInstanceEntry& end) const {
  TReferenceTarget* target = end.targets;
  while (target && &target->GetIndex() != this) target = target->GetNextOfEntry();
  return target;
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

/// Links stay: a default that has changed does not change an own value.
void TReferenceIndex::Renew(const std::vector<std::unique_ptr<TInstanceEntry>>& entries) {
  isStale_ = true;
  makes_.clear();
  for (const auto& entry : entries) {
    if (!entry->instance) continue;
    Join(*entry->instance);
    if (!entry->references && entry->instance->MayHaveReferences()) {
      entry->references = std::make_unique<TReferences>(*this);
    }
    const bool isOpen = entry->references && !entry->instance->AreAllLinked(*entry->references);
    if (isOpen) AddUnsettled(*entry);
  }
  isStale_ = false;
}

void TReferenceIndex::Collect(const TInmemInstance& target, TCandidates& candidates) {
  unsettled_.Sort(SetUnsettledSlot);
  Append(unsettled_, candidates);
  for (const TInstanceEntry* own = target.GetEntries(); own; own = own->nextOfInstance) {
    TReferenceTarget* const known = FindTarget(*own);
    if (!known) continue;
    known->referrers.Sort(SlotSetter(*known));
    Append(known->referrers, candidates);
  }
}

void TReferenceIndex::BeginWalk(TReferrerWalk& walk) noexcept {
  walk.SetNextWalk(walks_);
  walks_ = &walk;
}

void TReferenceIndex::EndWalk(const TReferrerWalk& walk) noexcept {
  if (walks_ == &walk) {
    walks_ = walk.GetNextWalk();
    return;
  }
  TReferrerWalk* before = walks_;
  while (before->GetNextWalk() != &walk) before = before->GetNextWalk();
  before->SetNextWalk(walk.GetNextWalk());
}

}  // namespace NZELVYR20
