#pragma once

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/weak_ptr.hpp>
#include <sstream>
#include <type_traits>

#include "ICIMMethodDecl.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TModel.h"

namespace NZELVYR20 {

/// One operation with all that it needs: numbers of registers, indices into the pools of names and
/// values, and a flag. An operation ignores what it has no use for.
struct TStep {
  int operation, a, b, name, value, flag;
};
using TPool = std::vector<std::string>;

/// Thrown where a step names a register in which nothing stands.
struct TNothingThere {};

/// Eight registers for elements of one kind.
template <class T>
struct TRegisters {
  T held[8] = {};
  T& operator[](int at) { return held[at & 7]; }
  const T& operator()(int at) const { return held[at & 7] ? held[at & 7] : throw TNothingThere(); }
};

/// One side: its namespace, the registers, the step in hand and what that has shown so far.
template <bool kIsModel>
struct TWorld {
  template <class TInterface, class TStruct>
  using TRef = std::conditional_t<kIsModel, TStruct*, boost::shared_ptr<TInterface>>;
  TRef<ICIMNamespace, TModelNamespace> space;
  TRegisters<TRef<ICIMClass, TModelClass>> c = {};
  TRegisters<TRef<ICIMQualifierDecl, TModelQualifier>> q = {};
  TRegisters<TRef<ICIMPropertyDecl, TModelDecl>> d = {};
  TRegisters<TRef<ICIMMethodDecl, TModelDecl>> m = {};
  TRegisters<TRef<ICIMInstance, TModelInstance>> i = {};
  TStep s = {};
  TCIMValue value = {};
  std::ostringstream out = {};
  /// Superclasses and methods are known weakly: what holds once they are gone is not compared.
  std::vector<TRef<const void, const void>> kept = {};
  /// An element is told by the order of its first appearance. A weak pointer never mistakes a new
  /// element for one that was freed.
  std::map<std::conditional_t<kIsModel, const void*, boost::weak_ptr<const void>>, std::size_t>
      seen = {};

  const auto& C() { return c(s.a); }
  const auto& Q() { return q(s.a); }
  const auto& D() { return d(s.b); }
  const auto& M() { return m(s.b); }
  const auto& I() { return i(s.b); }
  const std::string& In(const TPool& pool) const { return pool[s.name % pool.size()]; }
  /// For what restricts a query: as often as not nothing.
  static std::string Maybe(const TPool& pool, int at) {
    return at % 2 == 0 ? "" : pool[at / 2 % 8];
  }
  auto Flavor() const { return static_cast<ICIMQualifierDecl::EFlavor>(s.flag & 7); }

  template <class T>
  std::string Text(const T& element) {
    if (!element) return "none";
    const auto number = seen.emplace(element, seen.size()).first->second;
    return Name(*element) + "#" + std::to_string(number);
  }
  static std::string Text(const std::string* name) { return *name; }
  static std::string Text(const TCIMValue& shown) {
    std::ostringstream text;
    const bool isNow = shown.GetType() == TType::kDateTime && !shown.IsNull() &&
                       !static_cast<TCIMDateTime>(shown).IsInterval();
    text << shown.GetType() << (shown.IsNull() ? " null" : " ");
    text << (isNow ? "now" : shown.ToString(10));
    const auto referenced = shown.GetReferencedClass();
    if (referenced) text << " of " << referenced->GetName({});
    return text.str();
  }
  template <class T>
  static std::string Name(const T& element) {
    if constexpr (std::is_same_v<T, ICIMInstance> || std::is_same_v<T, TModelInstance>) {
      return "instance of " + Name(*element.GetClass({}));
    } else {
      return element.GetName({});
    }
  }

  /// Walks, and shows what came by. The callback goes on, stops or throws, as the flag wants it.
  /// Where identity decides the order, what came is compared as a set, and is only counted when
  /// the walk may have been cut short.
  template <class TWalk>
  void List(bool isOrdered, const TWalk& walk) {
    std::vector<std::string> texts;
    const int conduct = s.flag % 8;
    const auto take = [&](const auto& element) {
      texts.push_back(Text(element));
      if (conduct == 5) throw TVYRException(15);
      if (conduct == 6) throw TVYRException(14);
      if (conduct == 7) throw 7;
      return conduct < 4;
    };
    const auto print = [&] {
      if (!isOrdered) std::sort(texts.begin(), texts.end());
      for (const auto& text : texts) out << (isOrdered || conduct < 4 ? text : "x") << ", ";
    };
    try {
      walk(take);
    } catch (...) {
      print();
      throw;
    }
    print();
  }

  /// Runs the call on a class or on a declaration of any kind.
  template <class TCallback>
  void OnElement(const TCallback& call) {
    if (s.b % 3 == 0) return call(c(s.a));
    if (s.b % 3 == 1) return call(d(s.a));
    call(m(s.a));
  }
  template <class TQualifier, class TElement>
  static void Attach(const TQualifier& added, TElement& element) {
    // Each side stamps its own time, which must not become part of a path.
    const auto isNamed = [](const auto& one, const char* name) {
      return boost::algorithm::iequals(one.GetName({}), name);
    };
    if (isNamed(*added, "Key") && isNamed(element, "DateTimeOfCollection")) return;
    if constexpr (kIsModel) {
      element.AddQualifier(added);
    } else {
      added->AddToClassOrProperty({});
    }
  }
  template <class T>
  void ShowNamed(const T& element) {
    out << "\n  " << Text(element);
    const auto show = [&](const auto& one) {
      out << "\n    [" << Text(one) << " = " << Text(one->GetValue({})) << " flavor "
          << one->GetFlavor({}) << (one->GetPropagated({}) ? " propagated]" : "]");
      return true;
    };
    element->EnumerateQualifiers(show, {});
  }
  template <class T>
  void ShowProperty(const T& one) {
    out << "\n  " << Text(one->GetDeclaration({})) << ' ' << one->GetType({}) << one->IsArray({})
        << one->IsDefaultValue({}) << one->GetPropagated({}) << ' ' << Text(one->GetValue({}));
    out << " was " << one->IsPrevValueDifferent() << Text(one->GetPrevValue());
    const bool isDate = Contains(Text(one->GetValue({})) + Text(one->GetPrevValue()), "datetime");
    if (!isDate) out << " shown " << one->ToString() << '|' << one->PrevValueToString();
  }
  void ShowClass() {
    ShowNamed(C());
    out << " under " << Text(C()->GetSuperClass({})) << C()->IsRootClass({});
    const auto property = [&](const auto& one) {
      ShowNamed(one);
      out << " of " << Text(one->GetClass({})) << Text(one->GetDefaultValue({}));
      return true;
    };
    const auto method = [&](const auto& one) {
      ShowNamed(one);
      out << " of " << Text(one->GetClass({})) << one->GetReturnType({});
      return true;
    };
    C()->EnumeratePropertyDecls(property, {});
    C()->EnumerateMethodDecls(method, {});
    out << "\n  flags " << C()->IsAbstract({}) << C()->IsAssociation({});
  }
};

}  // namespace NZELVYR20
