#pragma once

#include <algorithm>
#include <boost/weak_ptr.hpp>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMMethodDecl.h"
#include "ICIMNamespace.h"
#include "ICIMParameterDecl.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TCIMDateTime.h"
#include "TModel.h"

namespace NZELVYR20 {

struct TPluginSide {
  using TSpace = boost::shared_ptr<ICIMNamespace>;
  using TClass = boost::shared_ptr<ICIMClass>;
  using TQualifierDecl = boost::shared_ptr<ICIMQualifierDecl>;
  using TProperty = boost::shared_ptr<ICIMPropertyDecl>;
  using TMethod = boost::shared_ptr<ICIMMethodDecl>;
  using TParameter = boost::shared_ptr<ICIMParameterDecl>;
  using TInstance = boost::shared_ptr<ICIMInstance>;
  using TParameterCall = TCIMParameterDeclCallback;
  using TIdentity = boost::weak_ptr<const void>;  ///< never mistakes a new element for a freed one
};

struct TModelSide {
  using TSpace = TModelNamespace*;
  using TClass = TModelClass*;
  using TQualifierDecl = TModelQualifier*;
  using TProperty = TModelDecl*;
  using TMethod = TModelDecl*;
  using TParameter = TModelDecl*;
  using TInstance = TModelInstance*;
  using TParameterCall = TCall<TModelDecl>;
  using TIdentity = const void*;
};

/// Thrown where a step names a register in which nothing stands.
struct TNothingThere {};

/// Eight registers for elements of one kind.
template <class T>
struct TRegisters {
  T held[8] = {};
  T& operator[](int at) { return held[at & 7]; }
  const T& operator()(int at) const { return held[at & 7] ? held[at & 7] : throw TNothingThere(); }
};

/// One side of the comparison: its namespace, what the steps work on, and what the step in hand
/// has shown so far. An element is told by the order in which it first showed up.
template <class TSide>
struct TWorld {
  typename TSide::TSpace space;
  TRegisters<typename TSide::TClass> c;
  TRegisters<typename TSide::TQualifierDecl> q;
  TRegisters<typename TSide::TProperty> d;
  TRegisters<typename TSide::TMethod> m;
  TRegisters<typename TSide::TParameter> p;
  TRegisters<typename TSide::TInstance> i;
  /// A class knows its superclass, and a parameter its method, only weakly: what the rules say of
  /// those that are gone is not compared.
  std::vector<typename TSide::TClass> classes;
  std::vector<typename TSide::TMethod> methods;
  std::map<typename TSide::TIdentity, std::size_t> seen;
  std::ostringstream out;
  TCIMValue value;  ///< the value of the step in hand

  template <class T>
  std::string Text(const T& element) {
    if (!element) return "none";
    const auto number = seen.emplace(element, seen.size()).first->second;
    return Name(*element) + "#" + std::to_string(number);
  }
  static std::string Text(const std::string* name) { return *name; }
  template <class TCallback>
  static typename TSide::TParameterCall ParameterCall(const TCallback& call) {
    return call;
  }

  static std::string Text(const TCIMValue& value) {
    std::ostringstream text;
    const bool isNow = value.GetType() == TType::kDateTime && !value.IsNull() &&
                       !static_cast<TCIMDateTime>(value).IsInterval();
    text << value.GetType() << (value.IsNull() ? " null" : " ")
         << (isNow ? "" : value.ToString(10));
    if (value.GetReferencedClass()) text << " of " << value.GetReferencedClass()->GetName({});
    return text.str();
  }

 private:
  template <class T>
  static std::string Name(const T& element) {
    return element.GetName({});
  }
  static std::string Name(const ICIMInstance& element) { return element.GetClass({})->GetName({}); }
  static std::string Name(const TModelInstance& element) { return element.cimClass->name; }
  static std::string Name(const ICIMProperty& element) {
    return element.GetDeclaration({})->GetName({});
  }
  static std::string Name(const TModelProperty& element) { return element.declaration->name; }
};

/// One operation, with all that it needs: register numbers, and indices into the pools of names
/// and values. An operation that has no use for a field ignores it.
struct TStep {
  int operation, a, b, name, value, flag;
};
using TScript = std::vector<TStep>;

struct TOperation {
  const char* code;
  const char* pattern;  ///< how people read it
  int weight;           ///< how often it is drawn
  void (*onPlugin)(TWorld<TPluginSide>&, const TStep&);
  void (*onModel)(TWorld<TModelSide>&, const TStep&);
};

const std::vector<TOperation>& GetOperations();
std::string ToText(const TStep& step);
/// A value of the pool, made from the registers of both sides; throws TNothingThere. Both sides
/// must name the instances that it refers to alike.
TCIMValue MakeValue(TWorld<TPluginSide>& plugin, TWorld<TModelSide>& model, const TStep& step);

}  // namespace NZELVYR20
