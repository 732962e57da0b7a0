#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// The command that prints MOF. A class that the namespace lacks is a TCommandError.
class TMofCommands {
 public:
  explicit TMofCommands(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// A class, with or without what it inherited; an empty name means everything that there is.
  std::string Write(const std::string& className, bool isInherited) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
