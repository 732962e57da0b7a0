#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "TEndOrder.h"
#include "TInstanceNames.h"

namespace NZELVYR20 {

/// An instance that an association joins to another, and the association's own instance.
struct TNeighbour {
  boost::shared_ptr<ICIMInstance> instance;
  boost::shared_ptr<ICIMInstance> association;
  std::string name;  ///< that people know it by
};

/// The neighbours that associations of one class lead to by one reference.
struct TNeighbourGroup {
  EWay way = EWay::kLevel;
  std::string association;  ///< the class
  std::string role;         ///< the reference that leads to the neighbours
  std::vector<TNeighbour> members;
};

/// All around an instance: what is above it, below it, and beside it, each by associations and
/// roles, the neighbours as people count. Around an association stand its own ends, too: the first
/// of them above, the others below.
std::vector<TNeighbourGroup> ListNeighbours(const boost::shared_ptr<ICIMInstance>& instance,
                                            TInstanceNames& names);

}  // namespace NZELVYR20
