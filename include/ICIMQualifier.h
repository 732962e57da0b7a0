#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMQualifierDecl.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMNamedElement;

/// A qualifier of one element: its declaration, which it holds, a value, a flavor of its own, and
/// the mark that tells an inherited copy from a qualifier that was set here. It knows its element
/// weakly.
class VYR_EXPORT ICIMQualifier {
 public:
  virtual ~ICIMQualifier();

  /// Does nothing.
  virtual void Validate(TCIMContext context) = 0;

  /// Attaches the qualifier to its element, which must be alive: its AddQualifier decides, and
  /// what that throws passes.
  virtual void AddToClassOrProperty(TCIMContext context) const = 0;

  /// Does nothing.
  virtual void RemoveFromClassOrProperty(TCIMContext context) = 0;

  /// The name of its declaration, as that was given.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// The element; empty when it is gone.
  virtual boost::shared_ptr<ICIMNamedElement> GetClassOrProperty(TCIMContext context) const = 0;

  /// The type of the value, which need not be that of the declaration.
  virtual TCIMValue::TCIMType GetType(TCIMContext context) const = 0;
  /// Whether that is an array type.
  virtual bool IsArray(TCIMContext context) const = 0;

  /// The declaration from which it was made.
  virtual boost::shared_ptr<const ICIMQualifierDecl> GetDeclaration(TCIMContext context) const = 0;

  /// Valid until the value is set again.
  virtual const TCIMValue& GetValue(TCIMContext context) const = 0;

  /// Sets the value. This and the two flavor operations make the qualifier a local one, also when
  /// nothing changes by them.
  virtual void SetValue(const TCIMValue& value, TCIMContext context) = 0;
  /// Adds the given bits.
  virtual void SetFlavor(ICIMQualifierDecl::EFlavor flavor, TCIMContext context) = 0;
  /// Takes the given bits away.
  virtual void UnsetFlavor(ICIMQualifierDecl::EFlavor flavor, TCIMContext context) = 0;
  /// The bits that are set.
  virtual ICIMQualifierDecl::EFlavor GetFlavor(TCIMContext context) const = 0;

  /// Compares the normalized names of the declarations and nothing else; a name that is no CIM
  /// name is status 25.
  virtual bool operator==(ICIMQualifier& other) const = 0;
  /// Byte-wise order of those names; status 25 likewise.
  virtual bool operator<(ICIMQualifier& other) const = 0;

  /// True for a copy that was inherited and has not been changed since.
  virtual bool GetPropagated(TCIMContext context) const = 0;

  /// Copies nothing.
  virtual ICIMQualifier& operator=(const ICIMQualifier& other) = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMQualifier& left, ICIMQualifier& right) { return left.operator==(right); }

}  // namespace NZELVYR20
