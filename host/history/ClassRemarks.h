#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <set>
#include <string>

#include "ICIMClass.h"

namespace NZELVYR20 {

/// A class as it is declared on both sides; empty where it is not.
struct TClassPair {
  boost::shared_ptr<ICIMClass> before;
  boost::shared_ptr<ICIMClass> after;
};

/// Adds a line for each thing that the two sides do not declare alike, as what the class inherits
/// may be told already. Tells whether the instances can be compared: not where the class is there
/// only once, or has other keys; how many that leaves out is said.
bool AddRemarks(std::set<std::string>& remarks, const TClassPair& pair, std::size_t instances);

}  // namespace NZELVYR20
