#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TLinkRows.h"

namespace NZELVYR20 {

/// Systems, parts and an association between them in the repository.
///
/// Every table of links has the two queries: how many associations refer to the system of that
/// number, and how many parts are at their far ends. Each visits what it counts.
class TPluginLinks {
 public:
  explicit TPluginLinks(const TLinkRows& rows);

  std::size_t CountReferences(std::size_t system) const;
  std::size_t CountAssociators(std::size_t system) const;

  /// CountReferences, but each association that is visited is set and added once more, as by a
  /// collector that refreshes what it comes by.
  std::size_t RefreshReferences(std::size_t system) const;

 private:
  boost::shared_ptr<ICIMNamespace> space_;
  std::vector<boost::shared_ptr<ICIMInstance>> systems_;
};

}  // namespace NZELVYR20
