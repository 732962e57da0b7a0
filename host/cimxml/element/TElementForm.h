#pragma once

#include <boost/shared_ptr.hpp>
#include <optional>
#include <set>
#include <string>

#include "FoldName.h"
#include "ICIMClass.h"

namespace NZELVYR20 {

/// How much of a class or an instance is written.
struct TElementForm {
  bool localOnly = false;    ///< of a class, only what it declares itself
  bool qualifiers = false;   ///< of a class; those of instances are never written
  bool classOrigin = false;  ///< where each property and method was declared
  /// Folded names of properties, of which others are left out; nothing: all are written.
  std::optional<std::set<std::string>> properties;
  /// Of an instance, only what this class declares or inherits; empty: everything.
  boost::shared_ptr<ICIMClass> upTo;

  /// Whether the list of properties has the name, in any letter case.
  bool IsListed(const std::string& property) const {
    return !properties || properties->count(FoldName(property)) != 0;
  }
};

}  // namespace NZELVYR20
