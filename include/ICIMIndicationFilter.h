#pragma once

#include <string>

#include "TCIMContext.h"
#include "VYRExport.h"

namespace NZELVYR20 {

/// Selects the indications that a subscriber wants. The contract only names it: a namespace held
/// in memory rejects subscriptions.
class VYR_EXPORT ICIMIndicationFilter {
 public:
  virtual ~ICIMIndicationFilter();

  /// The text of the query.
  virtual const std::string& GetQuery(TCIMContext context) const = 0;
  /// The name of the language in which the query is written.
  virtual const std::string& GetQueryLanguage(TCIMContext context) const = 0;
};

}  // namespace NZELVYR20
