#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

/// Finds what the user names. What cannot be found is a TCommandError that tells why, and no
/// message in the log.
class TElementFinder {
 public:
  explicit TElementFinder(boost::shared_ptr<ICIMNamespace> nameSpace);

  boost::shared_ptr<ICIMClass> FindClass(const std::string& name) const;

  boost::shared_ptr<ICIMInstance> FindInstance(const std::string& path) const;

  /// Finds nothing: makes sure that `name` can be a property's, where one is used as a filter.
  void CheckPropertyName(const std::string& name) const;

 private:
  TCIMReference ParsePath(const std::string& path) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
