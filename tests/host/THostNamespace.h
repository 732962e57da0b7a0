#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TMachineCollector.h"

namespace NZELVYR20 {

/// A namespace of the in-memory plug-in with the program's schema in it, and what a machine
/// adds. A message of the repository fails the test.
class THostNamespace {
 public:
  /// `root` is that of the machine to collect; empty for the schema alone.
  explicit THostNamespace(const std::string& root, TExtraAreas extras = {});

  const boost::shared_ptr<ICIMNamespace>& Get() const { return namespace_; }
  /// The "what" of each of the collector's notes.
  const std::vector<std::string>& GetNoted() const { return noted_; }

  /// The paths of the instances of a class and of its subclasses, as people read them.
  std::vector<std::string> ListPaths(const std::string& className) const;

  /// The instance of that path; fails the test when there is none.
  boost::shared_ptr<ICIMInstance> Find(const std::string& path) const;
  /// All that is set but the keys, in order of names: "Name=value|Name=value". A reference shows as
  /// the name of the element to which it leads.
  std::string ShowAll(const std::string& path) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
  std::vector<std::string> noted_;
};

}  // namespace NZELVYR20
