#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "TClassRows.h"

namespace NZELVYR20 {

/// A schema in the repository. Every schema has these operations.
class TPluginClasses {
 public:
  /// Declares everything.
  explicit TPluginClasses(const TClassRows& rows);

  void AddInstances(const TClassRows& rows);

  bool Has(const std::string& name) const { return space_->GetClass(name, {}) != nullptr; }
  /// Walk down from the first class: how many classes there are below it; how many instances
  /// there are, its own included.
  std::size_t CountSubClasses() const;
  std::size_t CountInstances() const;

 private:
  boost::shared_ptr<ICIMNamespace> space_;
  std::vector<boost::shared_ptr<ICIMClass>> classes_;
};

}  // namespace NZELVYR20
