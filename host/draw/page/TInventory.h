#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <map>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ICIMNamespace.h"
#include "ListElements.h"

namespace NZELVYR20 {

/// What there is, by classes, and what of it has been told.
class TInventory {
 public:
  explicit TInventory(ICIMNamespace& nameSpace);

  /// The instances of a class and its subclasses in order of their names, which count as told from
  /// now on; none where there is no such class.
  TInstanceList Take(const std::string& className);
  /// The same, but they do not count as told.
  TInstanceList List(const std::string& className) const;
  /// The class, if there is one.
  boost::shared_ptr<ICIMClass> FindClass(const std::string& name) const;

  /// How many instances of classes have not been told, most first; associations do not count.
  std::vector<std::pair<std::size_t, std::string>> CountRest() const;

  /// "44 instances of 17 classes, 25 of them associations"; empty where there is none.
  std::string CountAll() const;

 private:
  TClassList classes_;
  std::map<std::string, boost::shared_ptr<ICIMClass>> byName_;
  std::unordered_set<const ICIMInstance*> told_;
};

}  // namespace NZELVYR20
