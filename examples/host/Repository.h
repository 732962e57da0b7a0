#pragma once

#include <ICIMNamedElement.h>
#include <ICIMNamespace.h>

#include <boost/shared_ptr.hpp>
#include <string>

namespace examples {

namespace vyr = NZELVYR20;

/// Loads the plug-in and makes a namespace with the qualifier declarations of the examples. It
/// lives as long as somebody holds it. Throws std::runtime_error.
boost::shared_ptr<vyr::ICIMNamespace> OpenNamespace();

/// Attaches a qualifier to a class or declaration. Attach before the element is added: "Key" and
/// "Association" decide how it is taken.
void Qualify(vyr::ICIMNamespace& nameSpace, vyr::ICIMNamedElement& element, const std::string& name,
             const vyr::TCIMValue& value);

}  // namespace examples
