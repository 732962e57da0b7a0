#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"

namespace NZELVYR20 {

/// A property of an instance that has another value than before.
struct TPropertyChange {
  boost::shared_ptr<ICIMProperty> before;
  boost::shared_ptr<ICIMProperty> after;
  bool isMomentary;  ///< it changes by nature, as its declaration says on either side
};

/// An instance that came, went or changed.
struct TInstanceChange {
  std::string path;                         ///< in one line: the present one, or the last
  boost::shared_ptr<ICIMInstance> before;   ///< empty: it came
  boost::shared_ptr<ICIMInstance> after;    ///< empty: it went
  std::vector<TPropertyChange> properties;  ///< of one that is there on both sides
};

/// What two namespaces differ in.
struct TComparison {
  /// A line each: another machine, and what of the classes cannot be compared.
  std::vector<std::string> remarks;
  /// By class, then as people count.
  std::vector<TInstanceChange> changes;
};

/// How an instance is found again on the other side.
enum class EMatch {
  kPath,           ///< by its very path
  kWithinMachine,  ///< by its path without regard to the machine's name, where that changed
};

/// Compares the instances of two namespaces in linear time. Values are equal that are equal as
/// stored, references where their paths are; keys are compared as part of the path alone. Only
/// what both sides declare alike is compared, of classes that have instances: the rest is a remark.
TComparison CompareNamespaces(ICIMNamespace& before, ICIMNamespace& after, EMatch match);

}  // namespace NZELVYR20
