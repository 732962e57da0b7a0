#pragma once

#include <boost/shared_ptr.hpp>
#include <vector>

#include "ICIMNamespace.h"
#include "TSchemaRows.h"

namespace NZELVYR20 {

/// Declares the rows of a schema in a namespace. What the namespace throws passes.
class TSchemaBuilder {
 public:
  explicit TSchemaBuilder(const boost::shared_ptr<ICIMNamespace>& nameSpace);

  void Declare(const std::vector<TQualifierRow>& rows) const;
  /// Every class that a row names, and every qualifier, has to be declared before it.
  void Declare(const std::vector<TClassRow>& rows) const;

 private:
  void DeclareClass(const TClassRow& row) const;
  void DeclareProperty(ICIMClass& cimClass, const TPropertyRow& row) const;
  void DeclareMethod(ICIMClass& cimClass, const TMethodRow& row) const;
  void Attach(ICIMNamedElement& element, const std::vector<TQualifierUse>& qualifiers) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
