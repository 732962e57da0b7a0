#pragma once

#include <cstddef>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The values that one instance's properties have of their own, by position, in one piece of
/// memory.
class TInmemValues {
 public:
  explicit TInmemValues(std::size_t count);
  TInmemValues(const TInmemValues&) = delete;
  TInmemValues& operator=(const TInmemValues&) = delete;
  ~TInmemValues();

  std::size_t GetCount() const { return count_; }

  /// Empty where the declaration's default shows.
  const TCIMValue* Find(std::size_t position) const {
    return AreOwn()[position] ? &values_[position] : nullptr;
  }

  /// Asks for the memory of what will be looked at.
  void Prefetch(std::size_t position) const {
    __builtin_prefetch(values_ + position);
    __builtin_prefetch(AreOwn() + position);
  }

  void Set(std::size_t position, const TCIMValue& value);

 private:
  bool* AreOwn() const { return reinterpret_cast<bool*>(values_ + count_); }

  const std::size_t count_;
  TCIMValue* const values_;  ///< followed by whether each is one
};

}  // namespace NZELVYR20
