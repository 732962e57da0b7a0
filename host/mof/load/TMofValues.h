#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "ICIMNamespace.h"
#include "MofSyntax.h"
#include "TCIMReference.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// Makes values of what stands in the text, once the type is known.
class TMofValues {
 public:
  /// Gives the path of the instance that an alias names; throws TMofFault for one that cannot.
  using TAliases = std::function<TCIMReference(const TMofLiteral& alias)>;

  /// References are looked up in the namespace. Without `aliases`, an alias is a fault.
  explicit TMofValues(boost::shared_ptr<ICIMNamespace> nameSpace, TAliases aliases = {});

  /// The value in the given type. A single value for an array becomes its one element. Throws
  /// TMofFault where a literal does not suit the type.
  TCIMValue Make(const TMofValue& value, TCIMValue::TCIMType type) const;

 private:
  TCIMValue MakeScalar(const TMofLiteral& literal, TCIMValue::TCIMType type) const;
  TCIMReference MakePath(const TMofLiteral& literal) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  TAliases aliases_;
  mutable std::string text_;  ///< keeps its room for the next
};

}  // namespace NZELVYR20
