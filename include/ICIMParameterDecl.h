#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamedElement.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMMethodDecl;

/// One parameter of a method: a name, a type and qualifiers. A method allocates it and, once it
/// has been added, owns it. It knows its method weakly.
class VYR_EXPORT ICIMParameterDecl : public ICIMNamedElement {
 public:
  ~ICIMParameterDecl() override;

  /// Does nothing.
  virtual void Validate(TCIMContext context) = 0;

  /// Adds the parameter to its method, which must be alive. Status 25 for a name that is no CIM
  /// name (logged at level 0), 16 for a name that is taken (level 3); the method is then as
  /// before.
  virtual void AddToMethod(TCIMContext context) = 0;

  /// The name as it was given.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// Empty when the method is gone.
  virtual boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(TCIMContext context) const = 0;

  /// The type with which the parameter was allocated.
  virtual TCIMValue::TCIMType GetType(TCIMContext context) const = 0;

  /// Always the answer of an empty value, false: it does not look at the type. GetType() tells
  /// arrays.
  virtual bool IsArray(TCIMContext context) const = 0;

  /// Compares normalized names and nothing else; a name that is no CIM name is status 25.
  virtual bool operator==(ICIMParameterDecl& other) const = 0;
  /// Byte-wise order of the normalized names; status 25 likewise.
  virtual bool operator<(ICIMParameterDecl& other) const = 0;

  /// Copies nothing.
  virtual ICIMParameterDecl& operator=(const ICIMParameterDecl& other) = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMParameterDecl& left, ICIMParameterDecl& right) {
  return left.operator==(right);
}

}  // namespace NZELVYR20
