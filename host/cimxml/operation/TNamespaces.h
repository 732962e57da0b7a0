#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// The namespaces of a server by their names, which compare without letter case.
class TNamespaces {
 public:
  /// Gives a namespace a name, such as "root/cimv2"; it may have several.
  void Add(const std::string& name, boost::shared_ptr<ICIMNamespace> nameSpace);

  /// Empty where there is none of that name.
  boost::shared_ptr<ICIMNamespace> Find(const std::string& name) const;

 private:
  std::map<std::string, boost::shared_ptr<ICIMNamespace>> byName_;
};

}  // namespace NZELVYR20
