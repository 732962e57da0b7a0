#pragma once

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include "TCompactStore.h"

namespace NZELVYR20 {

/// The compact floor that hands a property out as the contract has it: by a pointer, with an owner
/// of its own, that the caller may keep.
class THandingStore : public TCompactStore {
 public:
  using TProperty = boost::shared_ptr<const TFloorValue>;

  static TProperty GetProperty(const TRecord* instance, std::size_t position) {
    return boost::make_shared<const TFloorValue>((*instance)[position]);
  }

  static std::uint64_t GetCapacity(const TRecord* instance) {
    return std::get<std::uint64_t>(*GetProperty(instance, kCapacity));
  }
};

}  // namespace NZELVYR20
