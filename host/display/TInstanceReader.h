#pragma once

#include <boost/shared_ptr.hpp>
#include <set>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMProperty.h"

namespace NZELVYR20 {

/// What the commands ask of an instance.
class TInstanceReader {
 public:
  TInstanceReader() = delete;

  /// The names of the class's keys, as their declarations give them.
  static std::set<std::string> ListKeyNames(ICIMClass& cimClass);

  static std::string NameOf(const ICIMProperty& property);
};

}  // namespace NZELVYR20
