#pragma once

#include <string>

#include "TCIMContext.h"
#include "VYRExport.h"

namespace NZELVYR20 {

/// A source of instances or methods behind a namespace. The contract only names it: a namespace
/// held in memory has none.
class VYR_EXPORT IProvider {
 public:
  virtual ~IProvider();

  /// The name that tells it from the others.
  virtual const std::string& GetName(TCIMContext context) const = 0;
};

}  // namespace NZELVYR20
