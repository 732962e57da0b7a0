#include "TFaults.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace NZELVYR20 {
namespace {

TFaults::EKind armed = TFaults::EKind::kNone;
int remaining = 0;
long live = 0;

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
  if (armed == EKind::kMemory && kind != EKind::kLog) return --remaining <= 0;
  return kind == armed && --remaining == 0;
}

long TFaults::CountLiveAllocations() { return live; }

}  // namespace NZELVYR20

using NZELVYR20::TFaults;

// What operator new stands on, by the names that C has for it. Under a sanitizer it is the
// sanitizer's own.
// NOLINTBEGIN(cppcoreguidelines-no-malloc,readability-identifier-naming)
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
#ifdef VYR_SANITIZED
#define __libc_malloc malloc
#else
namespace {

bool FailsInC() {
  const bool fails = TFaults::Strikes(TFaults::EKind::kC);
  if (fails) errno = ENOMEM;
  return fails;
}

}  // namespace

#pragma GCC visibility push(default)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

void* malloc(std::size_t size) { return FailsInC() ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t count, std::size_t size) {
  return FailsInC() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) {
  return FailsInC() ? nullptr : __libc_realloc(memory, size);
}
}
#pragma GCC visibility pop
#endif

void* operator new(std::size_t size) {
  void* const memory = TFaults::Strikes(TFaults::EKind::kNew) ? nullptr : __libc_malloc(size);
  if (memory == nullptr) {
    if (const std::new_handler handler = std::get_new_handler()) handler();
    throw std::bad_alloc();
  }
  ++NZELVYR20::live;
  return memory;
}

/// Who asks so can do without, and so it is not made to fail.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  void* const memory = __libc_malloc(size);
  if (memory != nullptr) ++NZELVYR20::live;
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) --NZELVYR20::live;
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
// NOLINTEND(cppcoreguidelines-no-malloc,readability-identifier-naming)
