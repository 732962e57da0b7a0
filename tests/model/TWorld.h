#pragma once

#include <array>
#include <boost/algorithm/string/predicate.hpp>
#include <typeinfo>
#include <utility>

#include "ICIMNamespace.h"
#include "TShown.h"
#include "TVYRException.h"

namespace NZELVYR20 {

/// One operation with all that it needs: numbers of registers, indices into the pools of names and
/// values, a flag, the namespace; and how many of the steps that follow a callback does with what
/// it is given, or with something else where their flags are odd. An operation ignores what it has
/// no use for. A fault is the number, kind and consequence of what fails meanwhile.
struct TStep {
  int operation, a, b, name, value, flag, space, inner, fault;
};
using TScript = std::vector<TStep>;
using TPool = std::vector<std::string>;

/// Thrown where a step names a register in which nothing stands, or asks for what a host must not.
struct TNothingThere {};

inline void Require(bool isAllowed) {
  if (!isAllowed) throw TNothingThere();
}

/// What callbacks throw: where the contract promises a plain TVYRException, this type is lost.
struct TDerivedFailure : TVYRException {
  using TVYRException::TVYRException;
};

/// Eight registers for elements of one kind.
template <class T>
struct TRegisters {
  std::array<TPtr<T>, 8> held = {};
  TPtr<T>& operator[](int at) { return held[at & 7]; }
  TPtr<T> operator()(int at) const { return held[at & 7] ? held[at & 7] : throw TNothingThere(); }
};

struct TAllRegisters {
  TRegisters<ICIMNamespace> n = {};
  TRegisters<ICIMClass> c = {};
  TRegisters<ICIMQualifierDecl> q = {};
  TRegisters<ICIMPropertyDecl> d = {};
  TRegisters<ICIMMethodDecl> m = {};
  TRegisters<ICIMInstance> i = {};
};

/// One side: its namespaces, the registers and the step in hand.
struct TWorld : TShown, TAllRegisters {
  std::function<TPtr<ICIMNamespace>(bool)> allocate;  ///< a namespace, with redefinition or not
  TStep s = {};
  std::vector<TStep> inner = {};  ///< what callbacks do
  bool isStarved = false;         ///< there are faults in the script

  TPtr<ICIMNamespace> N() const { return n(s.space); }
  TPtr<ICIMClass> C() const { return c(s.a); }
  TPtr<ICIMQualifierDecl> Q() const { return q(s.a); }
  TPtr<ICIMPropertyDecl> D() const { return d(s.b); }
  TPtr<ICIMMethodDecl> M() const { return m(s.b); }
  TPtr<ICIMInstance> I() const { return i(s.b); }
  const std::string& In(const TPool& pool) const { return pool[s.name % pool.size()]; }
  /// For what restricts a query: as often as not nothing.
  static std::string Maybe(const TPool& pool, int at) {
    return at % 2 == 0 ? "" : pool[at / 2 % 18 % pool.size()];
  }
  ICIMQualifierDecl::EFlavor Flavor() const {
    return static_cast<ICIMQualifierDecl::EFlavor>(s.flag & 7);
  }
  TCIMValue Value() const;
  TCIMValue Default() const;  ///< what may be a default, or stand in a qualifier

  /// Lets go of everything.
  void Clear() { c = {}, q = {}, d = {}, m = {}, i = {}, n = {}; }

  /// Does a step, and shows how it ends.
  void Do(const TStep& step);

  /// Walks, and shows what came by. The callback goes on, stops or throws, as the flag wants it: at
  /// each call, or at a later one alone. It may have steps to do before.
  template <class TWalk>
  void List(const TWalk& walk) {
    int calls = 0;
    walk([&](const auto& element) {
      out << Text(element) << ", ";
      Act(element);
      const int conduct = s.flag % 8;
      const int when = (s.a ^ s.b) % 4;
      if (++calls != when && when != 0) return true;
      if (conduct == 5 || conduct == 6) throw TDerivedFailure(conduct == 5 ? 15 : 14);
      if (conduct == 7) throw 7;
      return conduct < 4;
    });
  }
  template <class T>
  void Act(const T& element) {
    const auto steps = std::exchange(inner, {});
    const TStep outer = s;
    for (const TStep& step : steps) {
      if (step.flag % 2 == 0) Take(step, element);
      out << "{ ";
      Do(step);
      out << " } ";
    }
    s = outer;
    inner = steps;
  }
  void Take(const TStep& step, const TPtr<ICIMClass>& taken) { c[step.a] = taken; }
  void Take(const TStep& step, const TPtr<ICIMInstance>& taken) { i[step.b] = taken; }
  void Take(const TStep& step, const TPtr<ICIMPropertyDecl>& taken) { d[step.b] = taken; }
  void Take(const TStep& step, const TPtr<ICIMMethodDecl>& taken) { m[step.b] = taken; }
  void Take(const TStep& step, const TPtr<ICIMQualifierDecl>& taken) { q[step.a] = taken; }
  template <class T>
  void Take(const TStep&, const T&) {}

  /// Runs the call on a class or on a declaration of any kind.
  template <class TCallback>
  void OnElement(const TCallback& call) const {
    if (s.b % 3 == 0) return call(c(s.a));
    if (s.b % 3 == 1) return call(d(s.a));
    call(m(s.a));
  }
  template <class TElement>
  void Attach(const TPtr<ICIMQualifier>& added, const TElement& element) const {
    const bool isKey = boost::algorithm::iequals(added->GetName({}), "Key");
    if (isKey && MustNotBeKey(element.GetName({}))) return;
    Require(Lives(element));
    added->AddToClassOrProperty({});
  }
  /// A time must not become part of a path; nor, since who asks for the path of an instance without
  /// one declares it, what must not be half done.
  bool MustNotBeKey(const std::string& name) const {
    const auto has = [&](const char* part) { return boost::algorithm::icontains(name, part); };
    return has("DateTimeOfCollection") ||
           (isStarved && (has("Duplex") || has("Description") || has("State") || has("Status")));
  }
  /// A class without a namespace must not be tied to itself: nobody would part it.
  static bool Lives(const ICIMClass& cimClass) { return cimClass.GetNamespace({}) != nullptr; }
  template <class TDeclaration>
  static bool Lives(const TDeclaration& declaration) {
    const auto owner = declaration.GetClass({});
    return owner && Lives(*owner);
  }
  /// What a host must see to before a class is added: it belongs somewhere.
  void AddClass() const {
    const auto super = C()->GetSuperClass({});
    Require(super && Lives(*super) && Lives(*C()));
    C()->AddToNamespace({});
  }
  template <class T>
  void Compare(const TPtr<T>& left, const TPtr<T>& right, bool isOrderStable) {
    const bool isLess = *left < *right;
    const bool isGreater = *right < *left;
    out << (*left == *right) << (*right == *left) << (isLess || isGreater) << (isLess && isGreater);
    if (isOrderStable) out << isLess;
  }
  void CompareProperties(const TPtr<ICIMProperty>& left, const TPtr<ICIMProperty>& right) {
    for (const auto& one : {left, right}) {
      Require(!one->IsDefaultValue({}) && !IsTime(one->GetValue({})));
    }
    Compare(left, right, left->GetDeclaration({}) == right->GetDeclaration({}));
  }
};

}  // namespace NZELVYR20
