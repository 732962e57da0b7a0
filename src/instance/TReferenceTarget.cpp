#include "TReferenceTarget.h"

#include <algorithm>

#include "TReferences.h"

namespace NZELVYR20 {

namespace {

bool IsBefore(const TInstanceEntry* left, const TInstanceEntry* right) {
  return left->path < right->path;
}

}  // namespace

std::uint32_t TReferenceTarget::AddReferrer(TInstanceEntry& referrer) {
  if (slots_.size() == slots_.capacity() && count_ <= slots_.size() / 2) Arrange();
  slots_.push_back(&referrer);
  ++count_;
  return static_cast<std::uint32_t>(slots_.size() - 1);
}

void TReferenceTarget::RemoveReferrer(std::uint32_t slot) noexcept {
  slots_[slot] = nullptr;
  --count_;
}

std::size_t TReferenceTarget::FindBehind(const TInstanceEntry* last) noexcept {
  if (count_ < slots_.size() || arranged_ < slots_.size()) Arrange();
  if (!last) return 0;
  const auto behind = std::upper_bound(slots_.begin(), slots_.end(), last, IsBefore);
  return static_cast<std::size_t>(behind - slots_.begin());
}

void TReferenceTarget::Arrange() noexcept {
  const auto added = slots_.begin() + arranged_;
  const auto arrangedEnd = std::remove(slots_.begin(), added, nullptr);
  const auto addedEnd = std::remove(added, slots_.end(), nullptr);
  const auto end = std::move(added, addedEnd, arrangedEnd);
  slots_.erase(end, slots_.end());
  std::sort(arrangedEnd, slots_.end(), IsBefore);
  std::inplace_merge(slots_.begin(), arrangedEnd, slots_.end(), IsBefore);
  arranged_ = count_;
  ++arrangement_;
  for (std::uint32_t slot = 0; slot < slots_.size(); ++slot) {
    for (TReferences::TEdge& edge : slots_[slot]->references->edges) {
      if (edge.target == this) edge.slot = slot;
    }
  }
}

}  // namespace NZELVYR20
