#pragma once

#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// A key of a class, and what it is good for in a short path.
struct TInstanceKey {
  std::string name;
  /// Not the same for whole groups of instances, as are a class's name and what is propagated from
  /// the system.
  bool isOwn;
  bool isReference;

  /// Its value alone may stand for an instance.
  bool IsTelling() const { return isOwn && !isReference; }
};

/// The keys of a class in their order.
std::vector<TInstanceKey> ListInstanceKeys(ICIMClass& cimClass);

/// The value of a key that is no reference, as short paths write it, without quotes.
std::string KeyText(ICIMInstance& instance, const TInstanceKey& key);

/// Where a key that is a reference leads: the canonical text of that path.
std::string KeyTarget(ICIMInstance& instance, const TInstanceKey& key);

}  // namespace NZELVYR20
