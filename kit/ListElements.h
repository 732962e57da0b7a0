#pragma once

#include <ICIMClass.h>
#include <ICIMInstance.h>
#include <ICIMMethodDecl.h>
#include <ICIMNamespace.h>
#include <ICIMParameterDecl.h>
#include <ICIMProperty.h>
#include <ICIMPropertyDecl.h>
#include <ICIMQualifier.h>
#include <ICIMQualifierDecl.h>

#include <boost/shared_ptr.hpp>
#include <exception>
#include <string>
#include <vector>

namespace NZELVYR20 {

// What an enumeration of the repository calls back with, in its order. Most enumerations discard
// what a callback throws, so that work on the elements belongs after the walk, not into it. Where
// there is no memory for a list, the walk goes on to its end and the failure follows. What the
// enumeration itself throws passes.

/// For any other enumeration: `enumerate` receives the callback to pass on.
template <class TElement, class TEnumerate>
std::vector<TElement> ListElements(const TEnumerate& enumerate) {
  std::vector<TElement> elements;
  std::exception_ptr failure;
  enumerate([&](const TElement& element) {
    try {
      elements.push_back(element);
    } catch (...) {
      if (!failure) failure = std::current_exception();
    }
    return true;
  });
  if (failure) std::rethrow_exception(failure);
  return elements;
}

using TClassList = std::vector<boost::shared_ptr<ICIMClass>>;
using TInstanceList = std::vector<boost::shared_ptr<ICIMInstance>>;

/// The classes directly below the root class.
TClassList ListTopClasses(ICIMNamespace& nameSpace);
std::vector<boost::shared_ptr<ICIMQualifierDecl>> ListQualifierDecls(ICIMNamespace& nameSpace);

/// With `deep` each subclass is followed by its descendants.
TClassList ListSubClasses(ICIMClass& cimClass, bool deep);
TInstanceList ListInstances(ICIMClass& cimClass, bool deep);
/// Own and inherited ones.
std::vector<boost::shared_ptr<ICIMPropertyDecl>> ListPropertyDecls(const ICIMClass& cimClass);
std::vector<boost::shared_ptr<ICIMMethodDecl>> ListMethodDecls(const ICIMClass& cimClass);
std::vector<std::string> ListKeyNames(ICIMClass& cimClass);

std::vector<boost::shared_ptr<ICIMParameterDecl>> ListParameterDecls(ICIMMethodDecl& method);
/// Of a class, a property, a method or a parameter.
std::vector<boost::shared_ptr<ICIMQualifier>> ListQualifiers(const ICIMNamedElement& element);

std::vector<boost::shared_ptr<ICIMProperty>> ListProperties(ICIMInstance& instance);

}  // namespace NZELVYR20
