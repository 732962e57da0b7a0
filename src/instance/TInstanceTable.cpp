#include "TInstanceTable.h"

#include <algorithm>
#include <functional>
#include <new>
#include <utility>

#include "TInmemInstance.h"

namespace NZELVYR20 {

namespace {

using TEntryPointer = std::unique_ptr<TInstanceEntry>;

/// Entries that were taken out may bear the path of a later one.
bool IsBefore(const TInstanceEntry& left, const TInstanceEntry& right) {
  const int order = left.path.compare(right.path);
  return order < 0 || (order == 0 && left.serial < right.serial);
}

bool IsPointedBefore(const TEntryPointer& left, const TEntryPointer& right) {
  return IsBefore(*left, *right);
}

}  // namespace

TInstanceTable::TCursor::TCursor(const TInstanceTable& table)
    : table_(table), limit_(table.serial_), nextCursor_(table.cursors_) {
  table.Arrange();
  table.cursors_ = this;
}

TInstanceTable::TCursor::~TCursor() {
  TCursor** link = &table_.cursors_;
  while (*link != this) link = &(*link)->nextCursor_;
  *link = nextCursor_;
}

TInstanceTable::TPointer TInstanceTable::TCursor::Next() {
  while (next_ < table_.arranged_) {
    const TInstanceEntry& entry = *table_.order_[next_++];
    if (entry.instance && entry.serial <= limit_) return entry.instance;
  }
  return {};
}

TInstanceTable::~TInstanceTable() { Clear(); }

/// The link to the entry of that path, or the one at the end of its chain.
TInstanceEntry** TInstanceTable::FindLink(std::string_view path, std::size_t hash) const {
  TInstanceEntry** link = &buckets_[hash & (buckets_.size() - 1)];
  while (*link && ((*link)->hash != hash || (*link)->path != path)) link = &(*link)->nextInBucket;
  return link;
}

TInstanceEntry* TInstanceTable::FindEntry(std::string_view path) const {
  return buckets_.empty() ? nullptr : *FindLink(path, TReferenceIndex::GetHash(path));
}

TInstanceTable::TPointer TInstanceTable::Find(std::string_view path) const {
  const TInstanceEntry* const entry = FindEntry(path);
  return entry ? entry->instance : TPointer();
}

void TInstanceTable::Put(const std::string& path, const TPointer& instance, const TLeads& leads) {
  MakeRoom();
  const std::size_t hash = TReferenceIndex::GetHash(path);
  if (TInstanceEntry* const entry = *FindLink(path, hash)) {
    Replace(*entry, instance, leads);
  } else {
    Insert(path, hash, instance, leads);
  }
}

/// For one entry more.
void TInstanceTable::MakeRoom() {
  constexpr std::size_t kFewest = 4;
  if (order_.size() == order_.capacity()) order_.reserve(std::max(kFewest, 2 * order_.size()));
  if (order_.size() < buckets_.size()) return;
  std::vector<TInstanceEntry*> buckets(std::max(kFewest, 2 * buckets_.size()));
  buckets_.swap(buckets);
  for (TInstanceEntry* entry : buckets) {
    while (entry) {
      TInstanceEntry*& chain = buckets_[entry->hash & (buckets_.size() - 1)];
      TInstanceEntry* const next = std::exchange(entry->nextInBucket, chain);
      chain = std::exchange(entry, next);
    }
  }
}

void TInstanceTable::Insert(const std::string& path, std::size_t hash, const TPointer& instance,
                            const TLeads& leads) {
  auto entry = std::make_unique<TInstanceEntry>();
  entry->path = path;
  entry->hash = hash;
  entry->serial = serial_ + 1;
  references_.Add(*entry, *instance, leads);
  ++serial_;
  entry->instance = instance;
  instance->AddEntry(*entry);
  *FindLink(path, hash) = entry.get();
  order_.push_back(std::move(entry));
}

void TInstanceTable::Replace(TInstanceEntry& entry, const TPointer& instance, const TLeads& leads) {
  references_.Remove(entry);
  entry.instance->RemoveEntry(entry);
  const TPointer gone = std::exchange(entry.instance, instance);
  instance->AddEntry(entry);
  ++removals_;
  references_.AddOrForget(entry, leads);
}

void TInstanceTable::Erase(std::string_view path) {
  if (buckets_.empty()) return;
  TInstanceEntry** const link = FindLink(path, TReferenceIndex::GetHash(path));
  TInstanceEntry* const entry = *link;
  if (!entry) return;
  *link = std::exchange(entry->nextInBucket, nullptr);
  references_.Remove(*entry);
  entry->RemoveTargets();
  entry->instance->RemoveEntry(*entry);
  const TPointer gone = std::exchange(entry->instance, {});
  ++removals_;
  ++removed_;
  DropRemoved();
}

void TInstanceTable::Clear() noexcept {
  for (const auto& entry : order_) {
    if (entry->instance) entry->instance->RemoveEntry(*entry);
    entry->RemoveTargets();
  }
  std::vector<TInstanceEntry*>().swap(buckets_);
  references_.Clear();
  const TOrder gone = std::exchange(order_, {});
  arranged_ = 0;
  removed_ = 0;
  ++removals_;
  ++clearings_;
  for (TCursor* cursor = cursors_; cursor; cursor = cursor->nextCursor_) cursor->next_ = 0;
}

/// Puts what came since the last time in its place. Cursors go on with the entry that was next.
void TInstanceTable::Arrange() const noexcept {
  if (arranged_ == order_.size()) return;
  for (TCursor* cursor = cursors_; cursor; cursor = cursor->nextCursor_) {
    cursor->resume_ = cursor->next_ < arranged_ ? order_[cursor->next_].get() : nullptr;
  }
  const auto added = order_.begin() + static_cast<std::ptrdiff_t>(arranged_);
  std::sort(added, order_.end(), IsPointedBefore);
  std::inplace_merge(order_.begin(), added, order_.end(), IsPointedBefore);
  arranged_ = order_.size();
  for (TCursor* cursor = cursors_; cursor; cursor = cursor->nextCursor_) {
    cursor->next_ = cursor->resume_ ? GetPosition(*cursor->resume_) : arranged_;
  }
}

std::size_t TInstanceTable::GetPosition(const TInstanceEntry& entry) const {
  const auto isBefore = [](const TEntryPointer& left, const TInstanceEntry& right) {
    return IsBefore(*left, right);
  };
  const auto place = std::lower_bound(order_.begin(), order_.end(), entry, isBefore);
  return static_cast<std::size_t>(place - order_.begin());
}

void TInstanceTable::DropRemoved() noexcept {
  if (referrerWalks_ > 0 || removed_ <= order_.size() / 2) return;
  std::size_t kept = 0;
  std::size_t keptArranged = 0;
  for (std::size_t i = 0; i <= order_.size(); ++i) {
    if (i == arranged_) keptArranged = kept;
    for (TCursor* cursor = cursors_; cursor; cursor = cursor->nextCursor_) {
      if (cursor->next_ == i) cursor->next_ = kept;
    }
    if (i < order_.size() && order_[i]->instance) order_[i].swap(order_[kept++]);
  }
  order_.resize(kept);
  arranged_ = keptArranged;
  removed_ = 0;
}

TInstanceEntry* TInstanceTable::FindBehind(const TInstanceEntry* last, std::uint64_t limit) const {
  Arrange();
  std::size_t next = last ? GetPosition(*last) + 1 : 0;
  while (next < order_.size() && (!order_[next]->instance || order_[next]->serial > limit)) ++next;
  return next < order_.size() ? order_[next].get() : nullptr;
}

/// Without memory for the index a walk looks at every instance.
bool TInstanceTable::IsIndexed(const std::string& roleKey) noexcept {
  try {
    if (references_.IsStale()) references_.Renew(order_);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return references_.IsComplete(roleKey);
}

/// The host is asked, and may change the table meanwhile.
void TInstanceTable::TrySettle(const std::string& path) noexcept {
  try {
    const TPointer instance = Find(path);
    if (!instance->IsOf(*this)) return;  // it was added to a class that is not its own
    const TLeads leads = instance->FindLeads();
    TInstanceEntry* const entry = FindEntry(path);
    if (leads.empty() || !entry || entry->instance != instance) return;
    if (entry->references && !entry->references->IsSettled()) references_.Settle(*entry, leads);
  } catch (...) {
    // What fails here fails again when the walk looks at the instance, or is lack of memory.
  }
}

TInstanceTable::TReferrerCursor::TReferrerCursor(TInstanceTable& table,
                                                 const TInmemInstance& target,
                                                 const std::string& roleKey, bool followsEnds)
    : table_(table),
      target_(target),
      roleKey_(roleKey),
      followsEnds_(followsEnds),
      limit_(table.serial_),
      clearings_(table.clearings_) {
  ++table_.referrerWalks_;
  table_.references_.BeginWalk();
}

TInstanceTable::TReferrerCursor::~TReferrerCursor() {
  table_.references_.EndWalk();
  if (--table_.referrerWalks_ == 0) table_.DropRemoved();
}

TInstanceTable::TReferrerCursor::TReferrer TInstanceTable::TReferrerCursor::Next(
    const TInmemNamespace* nameSpace) {
  if (table_.clearings_ != clearings_) return {};
  Advance();
  if (!candidate_.entry) return {};
  const bool isCertain = candidate_.target != nullptr && nameSpace != nullptr &&
                         TReferenceIndex::Follow(*candidate_.target, *nameSpace).get() == &target_;
  return {candidate_.entry->instance, isCertain};
}

void TInstanceTable::TReferrerCursor::Advance() {
  const TInstanceEntry* const last = candidate_.entry;
  const TInstanceEntry* tried = nullptr;
  while (table_.IsIndexed(roleKey_)) {
    candidate_ = table_.references_.FindNext(target_, candidate_, last, limit_, followsEnds_);
    if (!candidate_.entry || candidate_.target || candidate_.entry == tried) return;
    tried = candidate_.entry;
    table_.TrySettle(std::string(tried->path));
    if (table_.clearings_ == clearings_) continue;
    candidate_ = {};  // and `last` is gone
    return;
  }
  candidate_ = {};
  candidate_.entry = table_.FindBehind(last, limit_);
}

}  // namespace NZELVYR20
