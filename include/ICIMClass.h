#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMElement.h"
#include "ICIMInstance.h"
#include "ICIMNamedElement.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMClass;
class ICIMMethodDecl;
class ICIMNamespace;
class ICIMPropertyDecl;

/// Receives one class of an enumeration; see each enumeration for what its result does.
using TCIMClassCallback = boost::function<bool(boost::shared_ptr<ICIMClass>)>;
/// Receives one property declaration of an enumeration.
using TCIMPropertyDeclCallback = boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>;
/// Receives one method declaration of an enumeration.
using TCIMMethodDeclCallback = boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>;
/// Receives one key name of an enumeration; the text is valid during the call.
using TCIMKeyNameCallback = boost::function<bool(const std::string*)>;

/// A class: its place in the hierarchy, its declarations and qualifiers, and the instances made
/// from it. A namespace allocates it and, once it has been added, owns it. A class knows its
/// namespace and superclass weakly; it owns its subclasses, declarations, qualifiers and the
/// instances that were added.
///
/// Names are matched without regard to letter case, and kept as they were given; a name that is no
/// CIM name is status 25 wherever one is looked up.
///
/// Validate() asks for a key: a class that is neither abstract nor has a key property, its own or
/// inherited, is status 7 (logged at level 3).
class VYR_EXPORT ICIMClass : public ICIMElement, public ICIMNamedElement {
 public:
  ~ICIMClass() override;

  /// Validates the class, enters it into its namespace and its superclass's list and, for an
  /// association, registers it with the classes to which its references point. Status 7 first,
  /// then 25 for a name that is no CIM name (logged at level 0), then 16 for a name that is taken
  /// (level 3) unless the namespace allows redefinition. Up to there a failure changes nothing, and
  /// lack of memory never does. Only then is the superclass looked for, which must be there, and
  /// last, of an association, where its references point: what asking a class of another
  /// implementation throws leaves the class in the namespace.
  ///
  /// Redefinition spares classes whose folded name has "zelsg_physicalnetworkport" anywhere in it:
  /// the first one goes on being found by name, and adding another is no failure.
  virtual void AddToNamespace(TCIMContext context) = 0;

  /// Takes the class out of its superclass's list and undoes the registration of an association.
  /// The namespace goes on finding it by name. Status 17 for a class that is not in the namespace,
  /// has subclasses, or is referred to by an association; nothing is then changed. Instances are
  /// no obstacle. Status 15 when an association's references were changed after it was added and
  /// it is not registered where they point now; it has left its superclass by then.
  virtual void RemoveFromNamespace(TCIMContext context) = 0;

  /// Does nothing.
  virtual void ModifyClass(boost::shared_ptr<ICIMClass> cimClass, TCIMContext context) = 0;

  /// The name as it was given.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// Empty when the namespace is gone.
  virtual boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) const = 0;

  /// Whether the qualifier "ASSOCIATION" is there with the value true.
  virtual bool IsAssociation(TCIMContext context) const = 0;
  /// Whether the qualifier "ABSTRACT" is there with the value true.
  virtual bool IsAbstract(TCIMContext context) const = 0;
  /// True for the class "<root>" that every namespace makes for itself, and for no other.
  virtual bool IsRootClass(TCIMContext context) const = 0;

  /// The superclass; the root class for a class that was made without one; empty for the root
  /// class, and when the superclass is gone.
  virtual boost::shared_ptr<ICIMClass> GetSuperClass(TCIMContext context) const = 0;

  /// Calls back for each subclass in order of addition; with `deep`, for its descendants before
  /// the next sibling. A false result ends the walk among these siblings and below them, while an
  /// outer walk goes on with its next sibling. What the callback throws is discarded.
  virtual void EnumerateSubClasses(const TCIMClassCallback& callback, bool deep,
                                   TCIMContext context) = 0;

  /// Whether this class or one of its superclasses bears the other's name, compared byte for byte.
  /// A class is a subclass of itself; the root class is nobody's ancestor.
  virtual bool IsSubclassOf(boost::shared_ptr<const ICIMClass> other,
                            TCIMContext context) const = 0;

  /// Calls back for the classes at the far ends of the associations registered with this very
  /// class, no class twice for one association. Empty names mean no restriction; unknown class
  /// names are status 15. `role` names the association's property that refers to this class,
  /// `resultRole` the one that refers to the result. False ends the walk; what the callback throws
  /// passes.
  virtual void EnumerateAssociatedClasses(const TCIMClassCallback& callback,
                                          const std::string& assocClass,
                                          const std::string& resultClass, const std::string& role,
                                          const std::string& resultRole, TCIMContext context) = 0;

  /// Calls back for the association classes registered with this class and then with each of its
  /// superclasses. `resultClass` keeps its subclasses only (empty means all, unknown is status
  /// 15); `role` keeps those whose property of that name refers to the very class with which they
  /// are registered. False ends the walk; what the callback throws passes.
  virtual void EnumerateAssociationClasses(const TCIMClassCallback& callback,
                                           const std::string& resultClass, const std::string& role,
                                           TCIMContext context) = 0;

  /// Calls back with the name of each key property, its own and inherited ones, in ascending order
  /// of normalized name, spelled as its declaration gives it. False ends the walk; what the
  /// callback throws passes, a TVYRException as a new one of the same status.
  virtual void EnumerateKeyNames(const TCIMKeyNameCallback& callback, TCIMContext context) = 0;

  /// Makes a declaration of this class; the default value gives its type. It is not added: fill
  /// it, then call its AddToClass.
  virtual boost::shared_ptr<ICIMPropertyDecl> AllocatePropertyDecl(const std::string& name,
                                                                   const TCIMValue& defaultValue,
                                                                   TCIMContext context) = 0;

  /// Status 15 when neither the class nor a superclass declares it.
  virtual boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                              TCIMContext context) const = 0;

  /// Calls back for every property declaration, own and inherited, in ascending order of
  /// normalized name. False ends the walk; what the callback throws is discarded.
  virtual void EnumeratePropertyDecls(const TCIMPropertyDeclCallback& callback,
                                      TCIMContext context) const = 0;

  /// Class-level properties are not supported: always status 15.
  virtual boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                                      TCIMContext context) const = 0;
  /// Class-level properties are not supported: always status 15.
  virtual void SetPropertyValue(const std::string& name, const TCIMValue& value,
                                TCIMContext context) = 0;
  /// Class-level properties are not supported: never calls back.
  virtual void EnumerateStaticProperties(const TCIMPropertyCallback& callback,
                                         TCIMContext context) = 0;

  /// Makes an instance, with one property for each declaration and, where the class declares
  /// "DateTimeOfCollection", the present time in it. It is not added: fill it, then call its
  /// AddToNamespace.
  virtual boost::shared_ptr<ICIMInstance> AllocateInstance(TCIMContext context) = 0;

  /// Calls back for every instance of this class in ascending order of path text; with `deep` then
  /// for those of each subclass, in order of addition, and so on down. The callback's result is
  /// ignored and what it throws is discarded.
  virtual void EnumerateInstances(const TCIMInstanceCallback& callback, bool deep,
                                  TCIMContext context) = 0;

  /// Makes a method declaration of this class. It is not added: fill it, then call its AddToClass.
  virtual boost::shared_ptr<ICIMMethodDecl> AllocateMethodDecl(const std::string& name,
                                                               TCIMValue::TCIMType returnType,
                                                               TCIMContext context) = 0;

  /// Empty when neither the class nor a superclass declares it, where GetPropertyDecl throws.
  virtual boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name,
                                                          TCIMContext context) const = 0;

  /// Calls back for every method declaration, own and inherited, in ascending order of normalized
  /// name. False ends the walk; what the callback throws is discarded.
  virtual void EnumerateMethodDecls(const TCIMMethodDeclCallback& callback,
                                    TCIMContext context) const = 0;

  /// Methods cannot be run here: returns a null value for every name and leaves the parameters.
  virtual TCIMValue InvokeMethod(const std::string& name, TCIMContext& parameters,
                                 TCIMContext context) = 0;

  /// Compares the names byte for byte: here letter case counts.
  virtual bool operator==(ICIMClass& other) const = 0;
  /// Byte-wise order of the names.
  virtual bool operator<(ICIMClass& other) const = 0;

  /// Copies nothing.
  virtual ICIMClass& operator=(const ICIMClass& other) = 0;

  /// @name Links
  /// Elements call these when they are added or removed; a host calls the elements' own operations
  /// instead. They take no context, and accept elements of the same implementation only.
  /// @{

  /// Lists a subclass, at the end; in a namespace that allows redefinition one of the very same
  /// name leaves the list.
  virtual void AddChildClass(boost::shared_ptr<ICIMClass> subClass) = 0;
  /// Takes a subclass out of the list, in which it must be.
  virtual void RemoveChildClass(boost::shared_ptr<ICIMClass> subClass) = 0;

  /// Indexes an instance under the text of its path, in place of one that was there. Does nothing
  /// once the namespace is gone: an instance and its class hold each other, and nobody would part
  /// them.
  virtual void AddInstance(boost::shared_ptr<ICIMInstance> instance) = 0;
  /// Takes out what stands under the text of the instance's path; nothing there is no error.
  virtual void RemoveInstance(boost::shared_ptr<ICIMInstance> instance) = 0;

  /// Registers an association that refers to this class; a second time has no effect. It holds the
  /// association, also once the namespace is gone: a class that holds this one is then kept for
  /// good.
  virtual void AddAssociationClass(boost::shared_ptr<ICIMClass> association) = 0;
  /// Undoes the registration; status 15 when there is none, unless the namespace is gone, whose end
  /// has undone it.
  virtual void RemoveAssociationClass(boost::shared_ptr<ICIMClass> association) = 0;

  /// Adds a property declaration. A reference in a class that is no association is status 22
  /// (logged at level 0), then a name that is no CIM name status 25 (level 0). No other failure
  /// reaches the caller:
  /// with the qualifier "OVERRIDE", the declaration replaces an inherited one of its name and
  /// type; where none is inherited it is added all the same, with a message at level 3 unless the
  /// name contains "porttype" in any case; another type is logged at level 3 and not added; one
  /// declared in this very class stays, silently.
  /// Without "OVERRIDE" a name that is taken stays as it is, silently, unless it contains
  /// "PortType" or "speedDuplex": then the new declaration takes the place.
  /// All this holds for a declaration of another implementation, too, except that one must not come
  /// to be added.
  virtual void AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration) = 0;
  /// Takes out the declaration of that name, own or inherited; status 15 when there is none. The
  /// superclass is not touched.
  virtual void RemovePropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration) = 0;

  /// Adds a method declaration; status 25 for a name that is no CIM name. With the qualifier
  /// "OVERRIDE" it replaces an inherited one of its name and return type; another type is status
  /// 14, one declared in this very class status 16, each with two messages at level 3; where none
  /// is inherited it is added, with one message. Without "OVERRIDE" a name that is taken is status
  /// 16, with one message. A failure changes nothing. One of another implementation must not come
  /// to be added.
  virtual void AddMethodDecl(boost::shared_ptr<ICIMMethodDecl> declaration) = 0;
  /// Takes out the declaration of that name, own or inherited; status 15 when there is none.
  virtual void RemoveMethodDecl(boost::shared_ptr<ICIMMethodDecl> declaration) = 0;

  /// @}
};

/// The same as the member; since C++20 that alone could be read in either direction.
inline bool operator==(ICIMClass& left, ICIMClass& right) { return left.operator==(right); }

}  // namespace NZELVYR20
