#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMPropertyDecl.h"

// The least that makes a schema: classes with one key, "Id", and instances of them.

namespace NZELVYR20 {

/// Attaches the qualifier, true, to the element of that namespace; declares it where it is missing.
void Qualify(const boost::shared_ptr<ICIMNamespace>& space, ICIMNamedElement& element,
             const std::string& name);

/// A class whose key has that default, an association where that is a reference. Not added yet.
boost::shared_ptr<ICIMClass> MakeClass(const boost::shared_ptr<ICIMNamespace>& space,
                                       const std::string& name, const TCIMValue& key);

/// The same, added.
boost::shared_ptr<ICIMClass> AddClass(const boost::shared_ptr<ICIMNamespace>& space,
                                      const std::string& name, const TCIMValue& key);

/// Adds an instance with that key.
boost::shared_ptr<ICIMInstance> AddInstance(const boost::shared_ptr<ICIMClass>& cimClass,
                                            const TCIMValue& id);

/// The class Link1, whose key is a reference to `leaf`, Link2, whose key is one to Link1, and so on
/// up to `depth`, each with one instance; returns the last, so that its path nests that deep.
boost::shared_ptr<ICIMInstance> AddNestedInstances(const boost::shared_ptr<ICIMNamespace>& space,
                                                   const boost::shared_ptr<ICIMInstance>& leaf,
                                                   unsigned depth);

}  // namespace NZELVYR20
