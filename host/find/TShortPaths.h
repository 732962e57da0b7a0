#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ListElements.h"
#include "ListInstanceKeys.h"

namespace NZELVYR20 {

/// Writes the shortest paths that tell the class and that TElementFinder::FindInstance takes for
/// the same instance: CIM_LogicalDisk:sda, else CIM_BasedOn.Antecedent=…,Dependent=… with the own
/// keys, else the full path. What is unique among the instances of a class is counted once, when
/// the first of them comes, so that a list takes time in its length.
class TShortPaths {
 public:
  /// In one line, as a terminal shows it.
  std::string For(ICIMInstance& instance);

  /// The paths of a list, as people count.
  static std::vector<std::string> List(const TInstanceList& instances);

 private:
  struct TClassPaths {
    std::vector<TInstanceKey> keys;
    /// How many instances have a text, by its hash: what is not counted apart counts as shared.
    std::unordered_map<std::size_t, std::size_t> counts;

    bool IsUnique(const std::string& text) const;
  };

  const TClassPaths& PathsOf(const boost::shared_ptr<ICIMClass>& cimClass);
  std::string PathText(ICIMInstance& instance);
  std::string OwnKeysText(ICIMInstance& instance, const std::vector<TInstanceKey>& keys);
  std::string ValueText(ICIMInstance& instance, const TInstanceKey& key);

  std::map<boost::shared_ptr<ICIMClass>, TClassPaths> classes_;
};

}  // namespace NZELVYR20
