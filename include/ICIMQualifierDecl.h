#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMNamespace;

/// The declaration of a qualifier: name, type and default value, scope and flavor. A namespace
/// allocates it and, once it has been added, owns it; the declaration knows its namespace weakly.
class VYR_EXPORT ICIMQualifierDecl {
 public:
  /// The kinds of element on which a qualifier may stand: single bits, combined into a set. The
  /// repository stores a scope and does not enforce it.
  enum EScope : unsigned {
    kNoScope = 0,
    kSchema = 1,
    kClass = 2,
    kAssociation = 4,
    kIndication = 8,
    kProperty = 16,
    kReference = 32,
    kMethod = 64,
    kParameter = 128,
    kAny = 255,
  };

  /// How a qualifier behaves: single bits, combined into a set. A bit that is not set means the
  /// opposite (not overridable, restricted to its own class).
  enum EFlavor : unsigned {
    kNoFlavor = 0,
    kOverridable = 1,  ///< once attached, it may be replaced by a later one of its name
    kToSubclass = 2,   ///< a class passes it on to its subclasses
    kTranslatable = 4,
  };

  virtual ~ICIMQualifierDecl();

  /// Does nothing: a declaration is checked when it is added.
  virtual void Validate(TCIMContext context) = 0;

  /// Enters the declaration into its namespace, which must be alive. Status 25 for a name that is
  /// no CIM name (logged at level 0), then 16 for a name that is taken (level 3) unless the
  /// namespace allows redefinition; the namespace is then as before.
  virtual void AddToNamespace(TCIMContext context) = 0;

  /// Does nothing: a declaration once added stays.
  virtual void RemoveQualifierDecl(TCIMContext context) = 0;

  /// The name as it was given.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// Empty when the namespace is gone.
  virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) const = 0;

  /// The type of the default value.
  virtual TCIMValue::TCIMType GetType(TCIMContext context) const = 0;
  /// Whether that is an array type.
  virtual bool IsArray(TCIMContext context) const = 0;

  /// Valid until the default is set again.
  virtual const TCIMValue& GetDefaultValue(TCIMContext context) const = 0;

  /// Replaces the default, and with it the type.
  virtual void SetDefaultValue(const TCIMValue& value, TCIMContext context) = 0;

  /// The scope with which it was allocated.
  virtual EScope GetScope(TCIMContext context) const = 0;

  /// Adds the given bits.
  virtual void SetFlavor(EFlavor flavor, TCIMContext context) = 0;
  /// Takes the given bits away.
  virtual void UnsetFlavor(EFlavor flavor, TCIMContext context) = 0;
  /// The bits that are set.
  virtual EFlavor GetFlavor(TCIMContext context) const = 0;

  /// Compares normalized names and nothing else; a name that is no CIM name is status 25.
  virtual bool operator==(ICIMQualifierDecl& other) const = 0;
  /// Byte-wise order of the normalized names; status 25 likewise.
  virtual bool operator<(ICIMQualifierDecl& other) const = 0;

  /// Copies nothing.
  virtual ICIMQualifierDecl& operator=(const ICIMQualifierDecl& other) = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMQualifierDecl& left, ICIMQualifierDecl& right) {
  return left.operator==(right);
}

/// The bits of both.
constexpr ICIMQualifierDecl::EScope operator|(ICIMQualifierDecl::EScope left,
                                              ICIMQualifierDecl::EScope right) {
  return static_cast<ICIMQualifierDecl::EScope>(static_cast<unsigned>(left) |
                                                static_cast<unsigned>(right));
}

/// The bits of both.
constexpr ICIMQualifierDecl::EFlavor operator|(ICIMQualifierDecl::EFlavor left,
                                               ICIMQualifierDecl::EFlavor right) {
  return static_cast<ICIMQualifierDecl::EFlavor>(static_cast<unsigned>(left) |
                                                 static_cast<unsigned>(right));
}

/// The bits of `left` that are not in `right`.
constexpr ICIMQualifierDecl::EFlavor operator-(ICIMQualifierDecl::EFlavor left,
                                               ICIMQualifierDecl::EFlavor right) {
  return static_cast<ICIMQualifierDecl::EFlavor>(static_cast<unsigned>(left) &
                                                 ~static_cast<unsigned>(right));
}

}  // namespace NZELVYR20
