#include "TMemoryWatch.h"

#include <atomic>

namespace NZELVYR20 {
namespace {

std::atomic<bool> wasLacking{false};

[[noreturn]] void NoteLack() {
  wasLacking = true;
  throw std::bad_alloc();
}

}  // namespace

TMemoryWatch::TMemoryWatch() noexcept : earlierHandler_(std::set_new_handler(NoteLack)) {
  wasLacking = false;
}

TMemoryWatch::~TMemoryWatch() { std::set_new_handler(earlierHandler_); }

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): of no use without a watch
void TMemoryWatch::Check() const {
  if (wasLacking) throw std::bad_alloc();
}

}  // namespace NZELVYR20
