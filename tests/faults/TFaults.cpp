#include "TFaults.h"

#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

namespace NZELVYR20 {
namespace {

TFaults::EKind armed = TFaults::EKind::kNone;
int remaining = 0;
long live = 0;
long allocations = 0;

}  // namespace

void TFaults::Arm(EKind kind, int n) {
  armed = kind;
  remaining = n;
}

bool TFaults::Disarm() {
  armed = EKind::kNone;
  return remaining <= 0;
}

bool TFaults::Strikes(EKind kind) {
  if (kind == EKind::kAllocation) ++allocations;
  return kind == armed && --remaining == 0;
}

long TFaults::CountLiveAllocations() { return live; }
long TFaults::CountAllocations() { return allocations; }

TFaults::TPause::TPause() : kind_(std::exchange(armed, EKind::kNone)) {}
TFaults::TPause::~TPause() { armed = kind_; }

}  // namespace NZELVYR20

// NOLINTBEGIN(cppcoreguidelines-no-malloc): what operator new stands on
void* operator new(std::size_t size) {
  using NZELVYR20::TFaults;
  void* const memory = TFaults::Strikes(TFaults::EKind::kAllocation) ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  ++NZELVYR20::live;
  return memory;
}

/// Who asks so can do without, and so it is not made to fail.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  void* const memory = std::malloc(size);
  if (memory != nullptr) ++NZELVYR20::live;
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) --NZELVYR20::live;
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
// NOLINTEND(cppcoreguidelines-no-malloc)
