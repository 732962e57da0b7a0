#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMQualifierDecl.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMQualifier;

/// Receives one qualifier of an enumeration; see each enumeration for what its result does.
using TCIMQualifierCallback = boost::function<bool(boost::shared_ptr<ICIMQualifier>)>;

/// An element that carries qualifiers: a class, or a declaration of a property, a method or a
/// parameter. It owns the qualifiers that are attached to it. Names are matched without regard to
/// letter case; a name that is no CIM name is status 25 wherever one is looked up.
///
/// The four kinds of element differ in what a missing qualifier is and in what an enumeration
/// does with its callback; the operations below say how.
class VYR_EXPORT ICIMNamedElement {
 public:
  virtual ~ICIMNamedElement();

  /// Attaches a qualifier. Where one of that name is attached already: if the attached one's
  /// flavor has EFlavor::kOverridable, the new one takes its place; if not, an equal value leaves
  /// the attached one as it is and another value is status 28. A property, method or parameter
  /// declaration also compares the flavors, a class does not. Scope and type are not checked.
  virtual void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TCIMContext context) = 0;

  /// Makes a qualifier of this element, with the flavor of its declaration. It is not attached:
  /// fill it, then call its AddToClassOrProperty.
  virtual boost::shared_ptr<ICIMQualifier> AllocateQualifier(
      boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value,
      TCIMContext context) = 0;

  /// The same, with a flavor of its own.
  virtual boost::shared_ptr<ICIMQualifier> AllocateQualifier(
      boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value,
      ICIMQualifierDecl::EFlavor flavor, TCIMContext context) = 0;

  /// The qualifier of that name. None: a property or method declaration throws status 15, a class
  /// or a parameter declaration returns an empty pointer.
  virtual boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                        TCIMContext context) const = 0;

  /// Calls back for every qualifier in ascending order of normalized name. On a class a false
  /// result ends the walk; elsewhere it is ignored. What the callback throws is discarded by
  /// classes and property declarations, and passes on methods and parameters.
  virtual void EnumerateQualifiers(const TCIMQualifierCallback& callback,
                                   TCIMContext context) const = 0;

  /// The qualifier of that name, or an empty pointer; `found` tells which. Never status 15.
  /// Method and parameter declarations do not support this form: status 1.
  virtual boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                        TCIMContext context) const = 0;
};

}  // namespace NZELVYR20
