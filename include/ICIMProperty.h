#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMPropertyDecl.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

/// A property of one instance: a value of its own, where one was set, else the default of its
/// declaration; and the value that it had before, where somebody recorded that. It knows its
/// declaration weakly: using a property whose declaration is gone is a programming error.
class VYR_EXPORT ICIMProperty {
 public:
  virtual ~ICIMProperty();

  /// The type that the declaration gives.
  virtual TCIMValue::TCIMType GetType(TCIMContext context) const = 0;
  /// Whether that is an array type.
  virtual bool IsArray(TCIMContext context) const = 0;

  /// True as long as no value of its own was set.
  virtual bool IsDefaultValue(TCIMContext context) const = 0;

  /// Its own value, else the declaration's default. Valid until either is set again.
  virtual const TCIMValue& GetValue(TCIMContext context) const = 0;

  /// Sets its own value. Status 14, logged at level 3, when the value is not of the declaration's
  /// type (a null needs the type, too), or refers to a class that is no subclass of the declared
  /// one; the earlier value then stays.
  virtual void SetValue(const TCIMValue& value, TCIMContext context) = 0;

  /// The same answer as IsDefaultValue().
  virtual bool GetPropagated(TCIMContext context) const = 0;

  /// Empty when the declaration is gone.
  virtual boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const = 0;

  /// True when both have the very same declaration object and equal values. A property that is
  /// compared with one of the same declaration needs a value of its own.
  virtual bool operator==(ICIMProperty& other) const = 0;
  /// By identity of the declaration, then by value, for which it needs one of its own.
  virtual bool operator<(ICIMProperty& other) const = 0;

  /// Copies nothing.
  virtual ICIMProperty& operator=(const ICIMProperty& other) = 0;

  /// The previous value where one was recorded, else the present one.
  virtual const TCIMValue& GetPrevValue() const = 0;

  /// Records a previous value. A null is always accepted; otherwise the checks of SetValue() with
  /// messages of their own, and status 14.
  virtual void SetPrevValue(const TCIMValue& value) = 0;

  /// Records that the previous value was null.
  virtual void SetPrevValue() = 0;

  /// True once a previous value was recorded, whatever it is; never false again.
  virtual bool IsPrevValueDifferent() const = 0;

  /// The value as people read it, by the declaration's qualifiers: value maps, units and scaling.
  /// A status other than 15 from a qualifier look-up passes; a null in a value map is status 14.
  virtual std::string ToString() const = 0;
  /// The same for the previous value.
  virtual std::string PrevValueToString() const = 0;
  /// One text for each element of an array, by the same qualifiers; for a null array its text for
  /// null, or nothing; a null element with a value map is status 14. A scalar gives one text,
  /// without its value map.
  virtual std::vector<std::string> ToStringVector() const = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMProperty& left, ICIMProperty& right) { return left.operator==(right); }

}  // namespace NZELVYR20
