#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <optional>
#include <string>

#include "ICIMNamespace.h"
#include "ListElements.h"

namespace NZELVYR20 {

/// Which instances are listed, and in which order.
struct TInstanceQuery {
  std::string className;
  bool isDeep = true;                ///< with those of subclasses
  std::optional<std::string> where;  ///< an SQL expression; none for all
  /// The property by which they are ordered; after "-" in descending order. Empty for the order in
  /// which the class enumerates them.
  std::string sort;
  bool isDescending = false;
  std::optional<std::size_t> limit;

  /// Ordered by stored values: texts as people count, everything else as it compares, and at the
  /// end, in either direction, those without a value. Throws TCommandError.
  TInstanceList List(const boost::shared_ptr<ICIMNamespace>& nameSpace) const;
};

}  // namespace NZELVYR20
