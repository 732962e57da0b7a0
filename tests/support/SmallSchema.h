#pragma once

#include <boost/shared_ptr.hpp>
#include <initializer_list>
#include <string>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifierDecl.h"

// The least that makes a schema: classes with one key, "Id", and instances of them.

namespace NZELVYR20 {

using TSpace = boost::shared_ptr<ICIMNamespace>;
using TClass = boost::shared_ptr<ICIMClass>;
using TInstance = boost::shared_ptr<ICIMInstance>;
using TPropertyDecl = boost::shared_ptr<ICIMPropertyDecl>;
using TQualifier = boost::shared_ptr<ICIMQualifier>;
using EFlavor = ICIMQualifierDecl::EFlavor;

constexpr EFlavor kUsualFlavor = ICIMQualifierDecl::kOverridable | ICIMQualifierDecl::kToSubclass;

/// A qualifier of the element with a declaration of its own; not attached.
TQualifier NewQualifier(const TSpace& space, ICIMNamedElement& element, const std::string& name,
                        const TCIMValue& value, EFlavor flavor = kUsualFlavor);

/// Attaches the qualifier, true, to the element of that namespace; declares it where it is missing.
void Qualify(const TSpace& space, ICIMNamedElement& element, const std::string& name);

/// Declares a property with those qualifiers.
TPropertyDecl Declare(const TSpace& space, const TClass& cimClass, const std::string& name,
                      const TCIMValue& value, std::initializer_list<const char*> flags = {});

/// A class whose key has that default, an association where that is a reference. Not added yet.
TClass MakeClass(const TSpace& space, const std::string& name, const TCIMValue& key,
                 const TClass& superClass = {});

/// The same, added.
TClass AddClass(const TSpace& space, const std::string& name, const TCIMValue& key,
                const TClass& superClass = {});

/// Adds an instance with that key.
TInstance AddInstance(const TClass& cimClass, const TCIMValue& id);

/// The class Link1, whose key is a reference to `leaf`, Link2, whose key is one to Link1, and so on
/// up to `depth`, each with one instance; returns the last, so that its path nests that deep.
TInstance AddNestedInstances(const TSpace& space, const TInstance& leaf, unsigned depth);

}  // namespace NZELVYR20
