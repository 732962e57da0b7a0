#include "TInstanceTable.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "TIndexedInstance.h"

namespace NZELVYR20 {

namespace {

using TEntryPointer = std::unique_ptr<TInstanceEntry>;

/// Entries that were taken out may bear the path of a later one.
bool IsBefore(const TInstanceEntry& left, const TInstanceEntry& right) {
  const int order = left.GetPath().compare(right.GetPath());
  return order < 0 || (order == 0 && left.serial < right.serial);
}

std::size_t GetHash(std::string_view path) { return std::hash<std::string_view>()(path); }

bool IsPointedBefore(const TEntryPointer& left, const TEntryPointer& right) {
  return IsBefore(*left, *right);
}

}  // namespace

bool TStanding::IsCurrent() const { return entry != nullptr && removals == table->GetRemovals(); }

TInstanceTable::TCursor::TCursor(const TInstanceTable& table)
    : TCursor(table, nullptr, table.serial_) {}

TInstanceTable::TCursor::TCursor(const TInstanceTable& table, const TInstanceEntry* last,
                                 std::uint64_t limit)
    : table_(table), limit_(limit) {
  table.Sort();
  if (last) next_ = table.GetPosition(*last) + 1;
  table.cursors_.Add(*this);
}

TInstanceTable::TCursor::~TCursor() { table_.cursors_.Remove(*this); }

/// What comes soon lies anywhere in memory: it is asked for ahead, here and not in a function of
/// its own, since compilers leave out calls of such as return nothing and change nothing.
TInstanceTable::TPointer TInstanceTable::TCursor::Next() {
  constexpr std::size_t kAhead = 8;
  constexpr std::ptrdiff_t kLines = 4;
  const TOrder& order = table_.order_;
  while (next_ < table_.sorted_) {
    if (next_ + 2 * kAhead < order.size()) {
      __builtin_prefetch(order[next_ + 2 * kAhead].get());
      const TIndexedInstance* const instance = order[next_ + kAhead]->instance.get();
      for (std::ptrdiff_t line = 0; line < kLines; ++line) {
        __builtin_prefetch(TIndexedInstance::GetLine(instance, line));
      }
    }
    const TInstanceEntry& entry = *order[next_++];
    if (entry.instance && entry.serial <= limit_) return entry.instance;
  }
  return {};
}

TInstanceTable::~TInstanceTable() { Clear(); }

/// The link to the entry of that path, or the one at the end of its chain.
TInstanceEntry** TInstanceTable::FindPlace(std::string_view path, std::size_t hash) const {
  TInstanceEntry** link = &GetChain(hash);
  while (*link && ((*link)->hash != hash || (*link)->GetPath() != path)) {
    link = &(*link)->nextInBucket;
  }
  return link;
}

TInstanceEntry* TInstanceTable::FindEntry(std::string_view path) const {
  return buckets_.empty() ? nullptr : *FindPlace(path, GetHash(path));
}

TInstanceTable::TPointer TInstanceTable::Find(std::string_view path) const {
  const TInstanceEntry* const entry = FindEntry(path);
  return entry ? entry->instance : TPointer();
}

void TInstanceTable::Put(std::string_view path, const TPointer& instance,
                         const TFoundReferences& found) {
  MakeRoom();
  const std::size_t hash = GetHash(path);
  if (TInstanceEntry* const entry = *FindPlace(path, hash)) {
    Replace(*entry, instance, found);
  } else {
    Insert(path, hash, instance, found);
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
      TInstanceEntry*& chain = GetChain(entry->hash);
      TInstanceEntry* const next = std::exchange(entry->nextInBucket, chain);
      chain = std::exchange(entry, next);
    }
  }
}

void TInstanceTable::Insert(std::string_view path, std::size_t hash, const TPointer& instance,
                            const TFoundReferences& found) {
  auto entry = TInstanceEntry::Make(path);
  entry->hash = hash;
  entry->serial = serial_ + 1;
  index_.Add(*entry, *instance, found);
  ++serial_;
  entry->instance = instance;
  instance->GetEntries().Add(*entry);
  TInstanceEntry*& chain = GetChain(hash);
  entry->nextInBucket = std::exchange(chain, entry.get());
  order_.push_back(std::move(entry));
}

/// An instance in its own place stands there throughout, and links to it stay. Links to another go
/// before it does (rule 4).
void TInstanceTable::Replace(TInstanceEntry& entry, const TPointer& instance,
                             const TFoundReferences& found) {
  if (entry.instance == instance) return index_.Refresh(entry, found);
  index_.Remove(entry);
  TReferenceIndex::UnsettleReferrers(entry);
  entry.instance->GetEntries().Remove(entry);
  const TPointer gone = std::exchange(entry.instance, instance);
  instance->GetEntries().Add(entry);
  ++removals_;
  index_.AddOrForget(entry, found);
}

void TInstanceTable::Erase(std::string_view path) {
  if (buckets_.empty()) return;
  TInstanceEntry** const place = FindPlace(path, GetHash(path));
  TInstanceEntry* const entry = *place;
  if (!entry) return;
  *place = std::exchange(entry->nextInBucket, nullptr);
  index_.Remove(*entry);
  TReferenceIndex::UnsettleReferrers(*entry);
  entry->instance->GetEntries().Remove(*entry);
  const TPointer gone = std::exchange(entry->instance, {});
  ++removals_;
  ++removed_;
  DropRemoved();
}

void TInstanceTable::Clear() noexcept {
  std::vector<TInstanceEntry*>().swap(buckets_);
  index_.Clear(order_);
  LoseStanding();
  for (const auto& entry : order_) {
    if (entry->instance) entry->instance->GetEntries().Remove(*entry);
  }
  const TOrder gone = std::exchange(order_, {});
  sorted_ = 0;
  removed_ = 0;
  for (TCursor& cursor : cursors_) cursor.next_ = 0;
}

void TInstanceTable::LoseStanding() noexcept {
  ++removals_;
  for (const auto& entry : order_) TReferenceIndex::UnsettleReferrers(*entry);
}

/// Puts what came since the last time in its place. Cursors go on with the entry that was next.
void TInstanceTable::Sort() const noexcept {
  if (sorted_ == order_.size()) return;
  for (TCursor& cursor : cursors_) {
    cursor.resume_ = cursor.next_ < sorted_ ? order_[cursor.next_].get() : nullptr;
  }
  const auto added = order_.begin() + static_cast<std::ptrdiff_t>(sorted_);
  std::sort(added, order_.end(), IsPointedBefore);
  std::inplace_merge(order_.begin(), added, order_.end(), IsPointedBefore);
  sorted_ = order_.size();
  for (TCursor& cursor : cursors_) {
    cursor.next_ = cursor.resume_ ? GetPosition(*cursor.resume_) : sorted_;
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
  if (index_.HasWalks() || removed_ <= order_.size() / 2) return;
  std::size_t kept = 0;
  std::size_t keptSorted = 0;
  for (std::size_t i = 0; i <= order_.size(); ++i) {
    if (i == sorted_) keptSorted = kept;
    for (TCursor& cursor : cursors_) {
      if (cursor.next_ == i) cursor.next_ = kept;
    }
    if (i < order_.size() && order_[i]->instance) order_[i].swap(order_[kept++]);
  }
  order_.resize(kept);
  sorted_ = keptSorted;
  removed_ = 0;
}

void TInstanceTable::RenewIndex() {
  if (index_.IsStale()) index_.Renew(order_);
}

void TInstanceTable::EndWalk(TReferenceIndex::TListener& walk) noexcept {
  index_.Remove(walk);
  DropRemoved();
}

}  // namespace NZELVYR20
