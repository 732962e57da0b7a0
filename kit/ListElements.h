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

/// What an enumeration of the repository calls back with, in its order; `enumerate` receives the
/// callback to pass on. Most enumerations discard what a callback throws, so that work on the
/// elements belongs after the walk, not into it. Where there is no memory for the list, the walk
/// goes on to its end and the failure follows. What the enumeration itself throws passes. So do the
/// lists below, which name the enumeration by what it gives.
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

/// Classes, as the lists below give them.
using TClassList = std::vector<boost::shared_ptr<ICIMClass>>;
/// Instances, likewise.
using TInstanceList = std::vector<boost::shared_ptr<ICIMInstance>>;

/// The classes directly below the root class.
TClassList ListTopClasses(ICIMNamespace& nameSpace);

/// Those directly below a class; with `deep` each is followed by its descendants.
TClassList ListSubClasses(ICIMClass& cimClass, bool deep);

/// Those of a class; with `deep` followed by those of each of its descendants.
TInstanceList ListInstances(ICIMClass& cimClass, bool deep);

/// The qualifiers that a namespace declares.
std::vector<boost::shared_ptr<ICIMQualifierDecl>> ListQualifierDecls(ICIMNamespace& nameSpace);

/// Own and inherited properties of a class.
std::vector<boost::shared_ptr<ICIMPropertyDecl>> ListPropertyDecls(const ICIMClass& cimClass);

/// Own and inherited methods of a class.
std::vector<boost::shared_ptr<ICIMMethodDecl>> ListMethodDecls(const ICIMClass& cimClass);

/// The keys of a class, as their declarations spell them.
std::vector<std::string> ListKeyNames(ICIMClass& cimClass);

/// The parameters of a method.
std::vector<boost::shared_ptr<ICIMParameterDecl>> ListParameterDecls(ICIMMethodDecl& method);

/// The qualifiers of a class, a property, a method or a parameter.
std::vector<boost::shared_ptr<ICIMQualifier>> ListQualifiers(const ICIMNamedElement& element);

/// The properties of an instance.
std::vector<boost::shared_ptr<ICIMProperty>> ListProperties(ICIMInstance& instance);

}  // namespace NZELVYR20
