#pragma once

#include <cstddef>
#include <new>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The values that one instance's properties have of their own, by position. They stand after this
/// object, which is the last member of its owner: who makes the owner leaves GetRoom() after it.
class TInmemValues {
 public:
  explicit TInmemValues(std::size_t count);
  TInmemValues(const TInmemValues&) = delete;
  TInmemValues& operator=(const TInmemValues&) = delete;
  ~TInmemValues();

  static constexpr std::size_t GetRoom(std::size_t count) {
    return GetMarksSize(count) + count * sizeof(TCIMValue);
  }

  /// Empty where the declaration's default shows.
  const TCIMValue* Find(std::size_t position) const {
    return AreOwn()[position] ? GetPlaces() + position : nullptr;
  }

  void Set(std::size_t position, const TCIMValue& value);

 private:
  /// One byte for each position, and values begin where they may.
  static constexpr std::size_t GetMarksSize(std::size_t count) {
    return (count + alignof(TCIMValue) - 1) / alignof(TCIMValue) * alignof(TCIMValue);
  }

  const bool* AreOwn() const { return reinterpret_cast<const bool*>(this + 1); }
  bool* AreOwn() { return reinterpret_cast<bool*>(this + 1); }
  const TCIMValue* GetPlaces() const {
    return reinterpret_cast<const TCIMValue*>(AreOwn() + GetMarksSize(count_));
  }
  TCIMValue* GetPlaces() { return reinterpret_cast<TCIMValue*>(AreOwn() + GetMarksSize(count_)); }

  const std::size_t count_;
};

}  // namespace NZELVYR20
