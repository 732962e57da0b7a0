#pragma once

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

  /// Whether a property is to be written, by its name in any letter case.
  bool IsListed(const std::string& property) const {
    return !properties || properties->count(FoldName(property)) != 0;
  }

  /// Leaves out properties that the class does not have.
  void RestrictTo(const ICIMClass& cimClass);
};

}  // namespace NZELVYR20
