#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMElement.h"
#include "TCIMContext.h"
#include "TCIMReference.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMClass;
class ICIMInstance;
class ICIMProperty;

/// Receives one instance of an enumeration; see each enumeration for what its result does.
using TCIMInstanceCallback = boost::function<bool(boost::shared_ptr<ICIMInstance>)>;
/// Receives one property of an enumeration.
using TCIMPropertyCallback = boost::function<bool(boost::shared_ptr<ICIMProperty>)>;

/// An instance of a class: one property for each that the class declared when the instance was
/// made. It holds its class; the class holds the instances that were added.
///
/// Validate() checks, in this order: a key property without value is status 18 (logged at level
/// 0); for an association, a reference that leads nowhere is status 15 (level 0), and what else
/// its resolution throws passes with its status.
class VYR_EXPORT ICIMInstance : public ICIMElement {
 public:
  ~ICIMInstance() override;

  /// Validates the instance and indexes it in its class under the text of its path; one that was
  /// there under that text is replaced. A validation failure does not reach the caller: it is
  /// logged at level 0, and the instance is not added.
  virtual void AddToNamespace(TCIMContext context) = 0;

  /// Does nothing.
  virtual void ModifyInstance(boost::shared_ptr<ICIMInstance> instance, TCIMContext context) = 0;

  /// Takes what stands under the instance's present path out of the class's index; nothing there
  /// is no error. The instance lives on while somebody holds it.
  virtual void Delete(TCIMContext context) = 0;

  /// The object path: the class and its key values, null ones included, without namespace. Status
  /// 15 when the class declared a key after the instance was made.
  virtual TCIMReference GetReference(TCIMContext context) const = 0;

  /// GetReference() with the same context.
  virtual TCIMReference BuildPath(TCIMContext context) const;

  /// The class from which it was made; never empty.
  virtual boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) const = 0;

  /// Associators: calls back for the instance at the far end of each association instance that
  /// refers to this one. `resultClass` is required: an empty or unknown name gives no results, one
  /// that is no CIM name is status 25. `assocClass` restricts the association's class; empty means
  /// any, unknown is status 15. `role` names the property that counts as this instance's end,
  /// wherever that points; `resultRole` names the far end's, which may be this instance itself, and
  /// leaves `role` without effect. At most one instance for each association instance; the
  /// callback's result is ignored and what it throws discarded. References that lead nowhere are
  /// skipped. A role that is no CIM name is logged at level 0 and matches nothing.
  virtual void EnumerateAssociatedInstances(const TCIMInstanceCallback& callback,
                                            const std::string& assocClass,
                                            const std::string& resultClass, const std::string& role,
                                            const std::string& resultRole, TCIMContext context) = 0;

  /// References: calls back for each association instance that refers to this one. `resultClass`
  /// restricts the association's class (empty means any, unknown is status 15), `role` the property
  /// by which it refers; a role that is no CIM name is status 25. The callback's result is ignored
  /// and what it throws discarded; one that throws status 15 is called again if a further property
  /// of the same association instance refers here. References that lead nowhere are skipped.
  virtual void EnumerateAssociationInstances(const TCIMInstanceCallback& callback,
                                             const std::string& resultClass,
                                             const std::string& role, TCIMContext context) = 0;

  /// The property of that name, the same object as long as anybody holds it, with an owner of its
  /// own. It outlasts its instance: it answers and is set as before. A name that
  /// the instance lacks is status 15, except that one which contains "speedDuplex", "Description"
  /// or a well-known status name ("HealthState" and its like) is declared on the class on the spot;
  /// the property returned is then a fresh one with the default value, which the instance does not
  /// keep.
  virtual boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                                      TCIMContext context) const = 0;

  /// ICIMProperty::SetValue of the property of that name; a name that the instance lacks is status
  /// 15, except that one which contains "speedDuplex" is ignored.
  virtual void SetPropertyValue(const std::string& name, const TCIMValue& value,
                                TCIMContext context) = 0;

  /// Calls back for every property in ascending order of normalized name. The callback's result is
  /// ignored; what it throws ends the walk and passes.
  virtual void EnumerateProperties(const TCIMPropertyCallback& callback, TCIMContext context) = 0;

  /// Methods cannot be run here: returns a null value for every name and leaves the parameters.
  virtual TCIMValue InvokeMethod(const std::string& name, TCIMContext& parameters,
                                 TCIMContext context) = 0;

  /// True for two instances of the very same class object, whatever their keys.
  virtual bool operator==(ICIMInstance& other) const = 0;
  /// By identity of the classes: instances of one class are never less than one another.
  virtual bool operator<(ICIMInstance& other) const = 0;

  /// Copies nothing.
  virtual ICIMInstance& operator=(const ICIMInstance& other) = 0;
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMInstance& left, ICIMInstance& right) { return left.operator==(right); }

}  // namespace NZELVYR20
