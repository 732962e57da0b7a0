#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TCIMReference.h"
#include "TCommandError.h"
#include "TVYRException.h"

namespace NZELVYR20 {

/// Finds what the user names. What cannot be found is a TCommandError that tells why, and no
/// message in the log.
class TElementFinder {
 public:
  explicit TElementFinder(boost::shared_ptr<ICIMNamespace> nameSpace);

  boost::shared_ptr<ICIMClass> FindClass(const std::string& name) const;

  /// One that associates others.
  boost::shared_ptr<ICIMClass> FindAssociation(const std::string& name) const;

  /// By an object path in any form that lists print, or by as much of one as names one instance
  /// only.
  boost::shared_ptr<ICIMInstance> FindInstance(const std::string& path) const;

 private:
  TCommandError ClassError(const std::string& name, const TVYRException& error) const;
  std::string KeysNote(const std::string& path) const;
  TCIMReference ParsePath(const std::string& path) const;
  boost::shared_ptr<ICIMInstance> FindByFullPath(const std::string& path) const;
  boost::shared_ptr<ICIMInstance> FindByShortPath(const std::string& path) const;
  TCommandError ShortPathError(const std::string& path, const TCommandError& fullPathError) const;
  std::string ResolvePath(const std::string& path) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
