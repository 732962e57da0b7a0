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

/// The flag of a walk that ends its thread.
constexpr int kEndsThread = 31;

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
  const TPtr<T>& operator()(int at) const {
    Require(held[at & 7] != nullptr);
    return held[at & 7];
  }
};

struct TAllRegisters {
  TRegisters<ICIMNamespace> n = {};
  TRegisters<ICIMClass> c = {};
  TRegisters<ICIMQualifierDecl> q = {};
  TRegisters<ICIMPropertyDecl> d = {};
  TRegisters<ICIMMethodDecl> m = {};
  TRegisters<ICIMParameterDecl> p = {};
  TRegisters<ICIMInstance> i = {};
};

/// One side: its namespaces, the registers and the step in hand.
struct TWorld : TShown, TAllRegisters, TStep {
  std::function<TPtr<ICIMNamespace>(bool)> allocate;  ///< a namespace, with redefinition or not
  std::function<void()> endThread;
  std::vector<TStep> following = {};  ///< what callbacks do
  bool isStarved = false;             ///< there are faults in the script
  bool isModel = false;
  int answer = 0;                    ///< of the host, in its own namespace
  TPtr<ICIMInstance> answered = {};  ///< the same

  /// What is called. Nothing but the plug-in holds what callbacks let go of.
  template <class T>
  TPtr<T> Called(const TPtr<T>& held) const {
    return isModel ? held : TPtr<T>(TPtr<void>(), held.get());
  }
  TPtr<ICIMNamespace> N() const { return Called(n(space)); }
  TPtr<ICIMClass> C() const { return Called(c(a)); }
  TPtr<ICIMQualifierDecl> Q() const { return Called(q(a)); }
  TPtr<ICIMPropertyDecl> D() const { return Called(d(b)); }
  TPtr<ICIMMethodDecl> M() const { return Called(m(b)); }
  TPtr<ICIMInstance> I() const { return Called(i(b)); }
  const std::string& In(const TPool& pool) const { return pool[name % pool.size()]; }
  /// For what restricts a query: as often as not nothing.
  static std::string Maybe(const TPool& pool, int at) {
    return at % 2 == 0 ? "" : pool[at / 2 % 18 % pool.size()];
  }
  ICIMQualifierDecl::EFlavor Flavor() const {
    return static_cast<ICIMQualifierDecl::EFlavor>(flag & 7);
  }
  TCIMValue Value() const;
  TCIMValue Default() const;  ///< what may be a default, or stand in a qualifier

  /// Lets go of everything.
  void Clear() { static_cast<TAllRegisters&>(*this) = {}, answered = {}; }

  /// What the host says to paths in its own namespace. Only for those to "a" does it pass on what
  /// the repository says: what it was given once may be remembered.
  TPtr<ICIMInstance> Answer(const TCIMReference& path) const {
    const bool passesOn = Contains(path.GetPath(), "\"a\"");
    if (passesOn || answer % 4 == 0) {
      const auto given = n(0)->GetInstance(path, {});
      return passesOn ? given : TPtr<ICIMInstance>();
    }
    if (answer % 4 == 1) throw TDerivedFailure(99);
    if (answer % 4 == 2) return answered;
    const TCIMReference other = answered->GetReference({});
    return other.GetPath() == path.GetPath() ? answered : n(0)->GetInstance(other, {});
  }

  void Set(const TStep& step) { static_cast<TStep&>(*this) = step; }
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
      const int conduct = flag % 8;
      if (flag == kEndsThread && endThread) endThread();
      const int when = (a ^ b) % 4;
      if (++calls != when && when != 0) return true;
      if (conduct == 5 || conduct == 6) throw TDerivedFailure(conduct == 5 ? 15 : 14);
      if (conduct == 7) throw 7;
      return conduct < 4;
    });
  }
  template <class T>
  void Act(const T& element) {
    const auto steps = std::exchange(following, {});
    const TStep outer = *this;
    for (const TStep& step : steps) {
      if (step.flag % 2 == 0) Take(step, element);
      out << "{ ";
      Do(step);
      out << " } ";
    }
    Set(outer);
    following = steps;
  }
  void Take(const TStep& step, const TPtr<ICIMClass>& taken) { c[step.a] = taken; }
  void Take(const TStep& step, const TPtr<ICIMInstance>& taken) { i[step.b] = taken; }
  void Take(const TStep& step, const TPtr<ICIMPropertyDecl>& taken) { d[step.b] = taken; }
  void Take(const TStep& step, const TPtr<ICIMMethodDecl>& taken) { m[step.b] = taken; }
  void Take(const TStep& step, const TPtr<ICIMQualifierDecl>& taken) { q[step.a] = taken; }
  template <class T>
  void Take(const TStep&, const T&) {}

  void Take(const TStep& step, const TPtr<ICIMParameterDecl>& taken) { p[step.a] = taken; }

  /// Runs the call on a class or on a declaration of any kind.
  template <class TCallback>
  void OnElement(const TCallback& call) const {
    if (b % 4 == 0) return call(C());
    if (b % 4 == 1) return call(Called(d(a)));
    if (b % 4 == 2) return call(Called(m(a)));
    call(Called(p(a)));
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
  bool MustNotBeKey(const std::string& key) const {
    const auto has = [&](const char* part) { return boost::algorithm::icontains(key, part); };
    return has("DateTimeOfCollection") ||
           (isStarved && (has("Duplex") || has("Description") || has("State") || has("Status")));
  }
  /// What is added has to have where it belongs.
  static bool Lives(const ICIMClass&) { return true; }
  static bool Lives(const ICIMParameterDecl& one) { return one.GetMethodDecl({}) != nullptr; }
  template <class TDeclaration>
  static bool Lives(const TDeclaration& declaration) {
    return declaration.GetClass({}) != nullptr;
  }
};

}  // namespace NZELVYR20
