#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <vector>

namespace NZELVYR20 {

class ICIMClass;
class TInstanceTable;
struct TInstanceEntry;

/// The place in which a namespace found an instance that it was asked for.
struct TStanding {
  boost::shared_ptr<const TInstanceTable> table;
  TInstanceEntry* entry = nullptr;  ///< good only while it is current
  std::uint64_t removals = 0;       ///< of the table, at that time

  /// Whether the instance stands there still, and the namespace would find it there.
  bool IsCurrent() const;
};

/// Where references of an instance were found to lead while it was validated.
struct TFoundReferences {
  struct TReference {
    std::uint32_t position = 0;  ///< of the property in its instance
    ICIMClass* referencedClass = nullptr;
    TStanding standing;
  };
  std::vector<TReference> references;
  std::uint64_t changes =
      0;  ///< of references in the instance's class, before the first resolution
};

}  // namespace NZELVYR20
