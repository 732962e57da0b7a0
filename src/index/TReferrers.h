#pragma once

#include <algorithm>
#include <boost/container/small_vector.hpp>
#include <cstdint>

namespace NZELVYR20 {

struct TInstanceEntry;

/// Entries of association instances, each in a slot of which it keeps the number. They come into
/// the order of their paths when a walk begins: until then one that was added stands at the end,
/// and one that was taken out leaves a gap.
class TReferrers {
 public:
  /// Few instances have more than a handful of referrers.
  using TSlots = boost::container::small_vector<TInstanceEntry*, 4>;

  bool IsEmpty() const { return count_ == 0; }

  /// The entries; an empty pointer stands for a gap.
  const TSlots& GetSlots() const { return slots_; }

  /// Returns the slot in which the entry then stands; `setSlot(entry, slot)` tells others of
  /// theirs. A failure changes nothing.
  template <class TSetSlot>
  std::uint32_t Add(TInstanceEntry& entry, TSetSlot setSlot) {
    if (slots_.size() == slots_.capacity() && count_ <= slots_.size() / 2) Sort(setSlot);
    slots_.push_back(&entry);
    ++count_;
    return static_cast<std::uint32_t>(slots_.size() - 1);
  }

  void Remove(std::uint32_t slot) noexcept {
    slots_[slot] = nullptr;
    if (--count_ == 0) Clear();
  }

  void Clear() noexcept {
    slots_.clear();
    count_ = sorted_ = 0;
  }

  /// Puts the entries in order, without gaps.
  template <class TSetSlot>
  void Sort(TSetSlot setSlot) noexcept {
    if (count_ == slots_.size() && sorted_ == count_) return;
    const auto added = slots_.begin() + sorted_;
    const auto sortedEnd = std::remove(slots_.begin(), added, nullptr);
    const auto addedEnd = std::remove(added, slots_.end(), nullptr);
    slots_.erase(std::move(added, addedEnd, sortedEnd), slots_.end());
    std::sort(sortedEnd, slots_.end(), IsPathBefore);
    std::inplace_merge(slots_.begin(), sortedEnd, slots_.end(), IsPathBefore);
    sorted_ = count_;
    for (std::uint32_t slot = 0; slot < count_; ++slot) setSlot(*slots_[slot], slot);
  }

  /// The order of paths; no two entries that hold an instance have the same in one table.
  static bool IsPathBefore(const TInstanceEntry* left, const TInstanceEntry* right);

 private:
  TSlots slots_;
  std::uint32_t count_ = 0;   ///< of slots that are no gaps
  std::uint32_t sorted_ = 0;  ///< so many slots from the first are in order
};

}  // namespace NZELVYR20
