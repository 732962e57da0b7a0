#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TSite.h"

namespace NZELVYR20 {

/// What a page is made from.
struct TPageRequest {
  boost::shared_ptr<ICIMNamespace> nameSpace;
  const TSiteRequest& request;
  std::string className;  ///< where the address has one

  /// The instance that "path" names, in any form that commands take.
  boost::shared_ptr<ICIMInstance> FindInstance() const;
};

/// @name Pages
/// Each is whole. What is not there is a TCommandError.
/// @{

/// The machine in short, and where to go from there.
std::string OverviewPage(const TPageRequest& asked);
/// The tree of classes with how many instances they have.
std::string ClassesPage(const TPageRequest& asked);
/// A class with what it declares and inherits.
std::string ClassPage(const TPageRequest& asked);
/// The instances of a class as a table: "sort" is a property, with "-" before it for descending
/// order; "page" a number; "only" leaves out those of subclasses.
std::string InstancesPage(const TPageRequest& asked);
/// The instance of the path "path", and what is around it.
std::string InstancePage(const TPageRequest& asked);
/// What the association "association" joins to the instance "path" by its reference "role".
std::string NeighboursPage(const TPageRequest& asked);
/// What has the text "q" in its name or among its values.
std::string SearchPage(const TPageRequest& asked);
/// Says that there is nothing, why, and what may have been meant.
std::string MissingPage(const TPageRequest& asked, const std::string& message);

/// @}

}  // namespace NZELVYR20
