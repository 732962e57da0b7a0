#pragma once

#include <new>

namespace NZELVYR20 {

/// Notes as long as it lives that the process lacked memory. Not everybody passes that on: streams
/// and enumerations go on without what they lost, and the output would lack it silently. One at a
/// time.
class TMemoryWatch {
 public:
  TMemoryWatch() noexcept;
  TMemoryWatch(const TMemoryWatch&) = delete;
  TMemoryWatch& operator=(const TMemoryWatch&) = delete;
  ~TMemoryWatch();

  /// Throws std::bad_alloc when memory was lacking at any time.
  void Check() const;

 private:
  std::new_handler earlierHandler_;
};

}  // namespace NZELVYR20
