#pragma once

#include <boost/shared_ptr.hpp>
#include <set>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TSqlPaths.h"

namespace NZELVYR20 {

/// What the tables and functions of a database share.
struct TSqlShared {
  explicit TSqlShared(const boost::shared_ptr<ICIMNamespace>& space)
      : nameSpace(space), paths(space) {}

  boost::shared_ptr<ICIMNamespace> nameSpace;
  TSqlPaths paths;
  std::vector<std::string> columns;  ///< of the tables that were named until now
  std::set<std::string> properties;  ///< of all classes; empty before it is asked for
};

}  // namespace NZELVYR20
