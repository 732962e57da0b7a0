#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamedElement.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMClass;
class ICIMParameterDecl;

/// Receives one parameter declaration of an enumeration.
using TCIMParameterDeclCallback = boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>;

/// The declaration of a method: a name, a return type, parameters and qualifiers. A class
/// allocates it and, once it has been added, owns it; subclasses share the very object. It knows
/// the class that declared it weakly and owns its parameters.
class VYR_EXPORT ICIMMethodDecl : public ICIMNamedElement {
 public:
  ~ICIMMethodDecl() override;

  /// Does nothing: a declaration is checked when it is added.
  virtual void Validate(TCIMContext context) = 0;

  /// Adds the declaration to its class, which must be alive, under the rules of
  /// ICIMClass::AddMethodDecl.
  virtual void AddToClass(TCIMContext context) = 0;

  /// The name as it was given.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// The class that declared it; empty when that class is gone.
  virtual boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) const = 0;

  /// The type with which the method was allocated.
  virtual TCIMValue::TCIMType GetReturnType(TCIMContext context) const = 0;

  /// Makes a parameter of this method. It is not added: fill it, then call its AddToMethod.
  virtual boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string& name,
                                                                     TCIMValue::TCIMType type,
                                                                     TCIMContext context) = 0;

  /// Status 25 for a name that is no CIM name, status 15 when the method has no such parameter.
  virtual boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                                TCIMContext context) const = 0;

  /// Calls back for every parameter in ascending order of normalized name, which is not the order
  /// of addition. The callback's result is ignored; what it throws ends the walk and passes.
  virtual void EnumerateParameterDecls(TCIMParameterDeclCallback& callback,
                                       TCIMContext context) = 0;

  /// Compares normalized names and nothing else; a name that is no CIM name is status 25.
  virtual bool operator==(ICIMMethodDecl& other) const = 0;
  /// Byte-wise order of the normalized names; status 25 likewise.
  virtual bool operator<(ICIMMethodDecl& other) const = 0;

  /// Copies nothing.
  virtual ICIMMethodDecl& operator=(const ICIMMethodDecl& other) = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMMethodDecl& left, ICIMMethodDecl& right) {
  return left.operator==(right);
}

}  // namespace NZELVYR20
