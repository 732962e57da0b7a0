#include "TLiveHeap.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace NZELVYR20 {
namespace {

std::atomic<std::size_t> liveBlocks{0};
std::atomic<std::size_t> liveBytes{0};

/// Before each block stands its size, in as much room as keeps the block aligned.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* Allocate(std::size_t size) {
  if (size + kHeader < size) throw std::bad_alloc();
  void* start = std::malloc(size + kHeader);  // NOLINT(cppcoreguidelines-no-malloc): below new
  if (start == nullptr) throw std::bad_alloc();
  *static_cast<std::size_t*>(start) = size;
  ++liveBlocks;
  liveBytes += size;
  return static_cast<std::byte*>(start) + kHeader;
}

void Release(void* block) noexcept {
  if (block == nullptr) return;
  void* start = static_cast<std::byte*>(block) - kHeader;
  --liveBlocks;
  liveBytes -= *static_cast<std::size_t*>(start);
  std::free(start);  // NOLINT(cppcoreguidelines-no-malloc): below delete
}

}  // namespace

TLiveHeap TLiveHeap::Measure() noexcept { return {liveBlocks, liveBytes}; }

}  // namespace NZELVYR20

// The forms for arrays call these; the one that does not throw would, but for sanitizers.
void* operator new(std::size_t size) { return NZELVYR20::Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return NZELVYR20::Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { NZELVYR20::Release(block); }
void operator delete(void* block, std::size_t) noexcept { NZELVYR20::Release(block); }
