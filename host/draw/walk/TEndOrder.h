#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "ICIMClass.h"

namespace NZELVYR20 {

/// Where an association leads from one of its ends to another.
enum class EWay { kDown, kUp, kLevel };

/// Which ends of associations stand above which others. Above stands a whole and what others need:
/// the references GroupComponent and Antecedent, and whatever has the qualifier Aggregate. Below
/// stand PartComponent and Dependent, and all others between these. Only a device stands above the
/// memory that it needs (CIM_AssociatedMemory), since that is one of its parts. Where all ends are
/// alike, as those of a neighbour and its neighbour, the way from each to another is level.
class TEndOrder {
 public:
  /// None where the ends are siblings: alike, and below or above another. The names are those of
  /// references of the class, as it declares them.
  std::optional<EWay> FindWay(const boost::shared_ptr<ICIMClass>& association,
                              const std::string& from, const std::string& to);

 private:
  struct THeights {
    boost::shared_ptr<ICIMClass> association;  ///< so that its address stays its own
    std::map<std::string, int> byReference;
    bool areAlike = true;
  };

  static THeights Measure(const boost::shared_ptr<ICIMClass>& association);

  std::unordered_map<const ICIMClass*, THeights> known_;
};

}  // namespace NZELVYR20
