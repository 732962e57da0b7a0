#pragma once

#include <ICIMInstance.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ListElements.h"

namespace NZELVYR20 {

/// A reference of an association's instance, and where it leads.
struct TAssociationEnd {
  std::string role;                          ///< the reference's name
  boost::shared_ptr<ICIMInstance> instance;  ///< to which it leads
};

/// What restricts a walk along associations; what is empty restricts nothing. Letter case does not
/// count.
struct TAssociationFilter {
  std::string assocClass;   ///< the association, or what it derives from
  std::string resultClass;  ///< the result, likewise
  std::string role;         ///< the reference that leads to where the walk begins
  std::string resultRole;   ///< the one that leads to the result
};

/// The ends of an association's instance, by ascending name of the reference; not those that lead
/// nowhere.
std::vector<TAssociationEnd> ListEnds(ICIMInstance& association);

/// The instances at the other ends of all associations with `source`. Roles are the ends at which
/// instances truly stand: of an association with three ends both others are found, and an instance
/// as often as it is associated. Throws status 15 for an unknown class, TKitError without a source.
TInstanceList ListAssociators(const boost::shared_ptr<ICIMInstance>& source,
                              const TAssociationFilter& filter = {});

/// The associations' instances with an end at `source`, of that class and in that role. Throws as
/// ListAssociators.
TInstanceList ListReferences(const boost::shared_ptr<ICIMInstance>& source,
                             const std::string& assocClass = {}, const std::string& role = {});

}  // namespace NZELVYR20
