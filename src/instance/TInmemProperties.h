#pragma once

#include <cstddef>

#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// The properties of one instance, in one piece of memory with a pointer to their owner in front:
/// a property finds its owner without a pointer of its own.
class TInmemProperties {
 public:
  TInmemProperties(TInmemInstance& owner, std::size_t count);
  TInmemProperties(const TInmemProperties&) = delete;
  TInmemProperties& operator=(const TInmemProperties&) = delete;
  ~TInmemProperties();

  std::size_t GetCount() const;

  TInmemInstanceProperty& operator[](std::size_t position) const { return first_[position]; }
  TInmemInstanceProperty* begin() const { return first_; }
  TInmemInstanceProperty* end() const { return first_ + GetCount(); }

  static TInmemInstance& GetOwner(const TInmemInstanceProperty& property);

 private:
  TInmemInstanceProperty* first_;
};

}  // namespace NZELVYR20
