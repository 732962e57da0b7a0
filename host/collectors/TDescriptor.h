#pragma once

#include <unistd.h>

#include <utility>

namespace NZELVYR20 {

/// An open file of this process, or none; closed with the object.
class TDescriptor {
 public:
  explicit TDescriptor(int number = -1) : number_(number) {}
  TDescriptor(TDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  TDescriptor& operator=(TDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~TDescriptor() {
    if (IsOpen()) close(number_);
  }

  bool IsOpen() const { return number_ >= 0; }
  int Get() const { return number_; }
  /// The number, which the caller closes from now on.
  int Release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

}  // namespace NZELVYR20
