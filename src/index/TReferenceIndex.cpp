#include "TReferenceIndex.h"

#include <algorithm>

namespace NZELVYR20 {

namespace {

void SetUnsettledSlot(TInstanceEntry& entry, std::uint32_t slot) {
  entry.references->unsettledSlot = slot;
}

/// All links of an entry to one end share a slot.
auto SlotSetter(const TLinkedEnd& end) {
  return [&end](TInstanceEntry& entry, std::uint32_t slot) {
    for (TReferences::TLink& link : entry.references->links) {
      if (link.end == &end) link.slot = slot;
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

void TReferenceIndex::Add(TInstanceEntry& entry, const TIndexedInstance& instance,
                          const TFoundReferences& found) {
  Join(instance);
  TellWalks(entry);  // what stood there before may have been a candidate
  const auto count = countReferences_(instance);
  if (!count) return;
  try {
    AddReferences(entry, *count, found);
  } catch (...) {
    Leave(instance);
    throw;
  }
}

void TReferenceIndex::AddReferences(TInstanceEntry& entry, std::size_t count,
                                    const TFoundReferences& found) {
  entry.references = std::make_unique<TReferences>(*this);
  try {
    entry.references->links.reserve(found.references.size());
    for (const auto& reference : found.references) {
      if (!reference.standing.IsCurrent()) continue;
      Link(entry, reference.position, *reference.referencedClass, *reference.standing.entry);
    }
    if (entry.references->links.size() != count) AddUnsettled(entry);
  } catch (...) {
    UnlinkAll(entry);
    entry.references.reset();
    throw;
  }
}

void TReferenceIndex::AddOrForget(TInstanceEntry& entry, const TFoundReferences& found) noexcept {
  try {
    Add(entry, *entry.instance, found);
  } catch (...) {
    isStale_ = true;  // rule 8
  }
}

void TReferenceIndex::Refresh(TInstanceEntry& entry, const TFoundReferences& found) noexcept {
  if (!entry.references) return;
  try {
    for (const auto& reference : found.references) {
      const bool isKnown = entry.references->FindLink(reference.position) != nullptr;
      if (isKnown || !reference.standing.IsCurrent()) continue;
      Settle(entry, reference.position, *reference.referencedClass, *reference.standing.entry);
    }
  } catch (...) {
    // Rule 8: what has no link is asked for in the next walk.
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
  for (TListener& walk : walks_) walk.End();
}

void TReferenceIndex::UnsettleReferrers(TInstanceEntry& end) noexcept {
  while (!end.asEnd.IsEmpty()) {
    TLinkedEnd& linked = end.asEnd.GetFirst();
    linked.index.UnlinkReferrers(linked);
  }
}

void TReferenceIndex::UnlinkReferrers(TLinkedEnd& end) noexcept {
  for (TInstanceEntry* const referrer : end.referrers.GetSlots()) {
    if (!referrer) continue;
    NoteLoss(*referrer);
    auto& links = referrer->references->links;
    const auto leadsThere = [&](const TReferences::TLink& link) { return link.end == &end; };
    links.erase(std::remove_if(links.begin(), links.end(), leadsThere), links.end());
    AddUnsettledOrForget(*referrer);
  }
  delete &end;
}

void TReferenceIndex::Join(const TIndexedInstance& instance) {
  const auto& declared = instance.GetDeclared();
  for (TMake& make : makes_) {
    if (make.declared != declared) continue;
    ++make.count;
    return;
  }
  makes_.push_back({declared, 1, declared->GetDefaultsRevision()});
}

void TReferenceIndex::Leave(const TIndexedInstance& instance) noexcept {
  const auto isOfIt = [&](const TMake& make) { return make.declared == instance.GetDeclared(); };
  const auto make = std::find_if(makes_.begin(), makes_.end(), isOfIt);
  if (make != makes_.end() && --make->count == 0) makes_.erase(make);
}

void TReferenceIndex::Settle(TInstanceEntry& entry, std::uint32_t position,
                             ICIMClass& referencedClass, TInstanceEntry& end) {
  Link(entry, position, referencedClass, end);
  NoteIfSettled(entry);
}

bool TReferenceIndex::AreAllLinked(const TInstanceEntry& entry) const {
  return countReferences_(*entry.instance).value_or(0) == entry.references->links.size();
}

void TReferenceIndex::NoteIfSettled(TInstanceEntry& entry) noexcept {
  if (AreAllLinked(entry)) RemoveUnsettled(*entry.references);
}

void TReferenceIndex::Unsettle(TInstanceEntry& entry, std::uint32_t position) noexcept {
  if (const auto* const link = entry.references->FindLink(position)) Unlink(entry, *link);
  AddUnsettledOrForget(entry);  // rule 5: the new value may be a reference
}

void TReferenceIndex::Link(TInstanceEntry& entry, std::uint32_t position,
                           ICIMClass& referencedClass, TInstanceEntry& end) {
  auto& links = entry.references->links;
  links.reserve(links.size() + 1);
  TLinkedEnd* linked = FindEnd(end);
  if (!linked) linked = new TLinkedEnd(*this, end);
  const std::uint32_t slot = AddReferrer(*linked, entry);
  const auto isBefore = [&](const TReferences::TLink& link) { return link.position < position; };
  links.insert(std::find_if_not(links.begin(), links.end(), isBefore),
               {position, slot, &referencedClass, linked});
}

/// Returns the entry's slot among the end's referrers.
std::uint32_t TReferenceIndex::AddReferrer(TLinkedEnd& end, TInstanceEntry& entry) {
  if (const auto* const other = entry.references->FindLinkTo(end)) return other->slot;
  try {
    return end.referrers.Add(entry, SlotSetter(end));
  } catch (...) {
    if (end.referrers.IsEmpty()) delete &end;  // rule 2
    throw;
  }
}

void TReferenceIndex::Unlink(TInstanceEntry& entry, const TReferences::TLink& link) noexcept {
  NoteLoss(entry);
  TReferences& references = *entry.references;
  const TReferences::TLink gone = link;
  references.links.erase(references.links.begin() + (&link - references.links.data()));
  if (references.FindLinkTo(*gone.end)) return;
  gone.end->referrers.Remove(gone.slot);
  if (gone.end->referrers.IsEmpty()) delete gone.end;  // rule 2
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
    isStale_ = true;  // rule 8
  }
  TellWalks(entry);
}

void TReferenceIndex::RemoveUnsettled(TReferences& references) noexcept {
  if (references.IsSettled()) return;
  unsettled_.Remove(references.unsettledSlot);
  references.unsettledSlot = TReferences::kNoSlot;
}

void TReferenceIndex::NoteLoss(const TInstanceEntry& entry) noexcept {
  for (TListener& walk : walks_) walk.NoteLoss(entry);
}

void TReferenceIndex::TellWalks(TInstanceEntry& entry) noexcept {
  for (TListener& walk : walks_) walk.Include(entry);
}

TLinkedEnd* TReferenceIndex::FindEnd(TInstanceEntry& entry) const {
  for (TLinkedEnd& end : entry.asEnd) {
    if (&end.index == this) return &end;
  }
  return nullptr;
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

/// Links stay: a default that has changed does not change an own value (rule 4).
void TReferenceIndex::Renew(const std::vector<std::unique_ptr<TInstanceEntry>>& entries) {
  isStale_ = true;
  makes_.clear();
  for (const auto& entry : entries) {
    if (!entry->instance) continue;
    Join(*entry->instance);
    if (!entry->references && countReferences_(*entry->instance)) {
      entry->references = std::make_unique<TReferences>(*this);
    }
    if (!entry->references || AreAllLinked(*entry)) continue;
    AddUnsettled(*entry);
    TellWalks(*entry);
  }
  isStale_ = false;
}

void TReferenceIndex::Collect(TIndexedInstance& origin, TCandidates& candidates) {
  unsettled_.Sort(SetUnsettledSlot);
  Append(unsettled_, candidates);
  for (TInstanceEntry& own : origin.GetEntries()) {
    TLinkedEnd* const end = FindEnd(own);
    if (!end) continue;
    end->referrers.Sort(SlotSetter(*end));
    Append(end->referrers, candidates);
  }
}

}  // namespace NZELVYR20
