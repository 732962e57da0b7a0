#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamedElement.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMClass;

/// The declaration of a property: a name, a default value, which also gives the type, and
/// qualifiers. A class allocates it and, once it has been added, owns it; subclasses share the
/// very object. It knows the class that declared it weakly.
class VYR_EXPORT ICIMPropertyDecl : public ICIMNamedElement {
 public:
  ~ICIMPropertyDecl() override;

  /// Does nothing: a declaration is checked when it is added.
  virtual void Validate(TCIMContext context) = 0;

  /// Adds the declaration to its class, which must be alive, under the rules of
  /// ICIMClass::AddPropertyDecl.
  virtual void AddToClass(TCIMContext context) = 0;

  /// Does nothing; ICIMClass::RemovePropertyDecl takes a declaration away.
  virtual void RemoveFromClass(TCIMContext context) = 0;

  /// The name as it was given.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// The class that declared it; empty when that class is gone.
  virtual boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) const = 0;

  /// The type of the default value. A reference declaration carries the class that it refers to
  /// in its default value (TCIMValue::GetReferencedClass).
  virtual TCIMValue::TCIMType GetType(TCIMContext context) const = 0;
  /// Whether that is an array type.
  virtual bool IsArray(TCIMContext context) const = 0;

  /// Valid until the default is set again.
  virtual const TCIMValue& GetDefaultValue(TCIMContext context) const = 0;

  /// Replaces the default, and with it the type. Subclasses, and instances without a value of
  /// their own, show the new default at once.
  virtual void SetDefaultValue(const TCIMValue& value, TCIMContext context) = 0;

  /// Compares normalized names and nothing else; a name that is no CIM name is status 25.
  virtual bool operator==(ICIMPropertyDecl& other) const = 0;
  /// Byte-wise order of the normalized names; status 25 likewise.
  virtual bool operator<(ICIMPropertyDecl& other) const = 0;

  /// Copies nothing.
  virtual ICIMPropertyDecl& operator=(const ICIMPropertyDecl& other) = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMPropertyDecl& left, ICIMPropertyDecl& right) {
  return left.operator==(right);
}

}  // namespace NZELVYR20
