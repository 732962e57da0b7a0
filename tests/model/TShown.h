#pragma once

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TCIMDateTime.h"

namespace NZELVYR20 {

template <class T>
using TPtr = boost::shared_ptr<T>;
using TType = TCIMValue::TCIMType;

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// Elements as text. An element is told by the order of its first appearance.
struct TShown {
  using TNumber = std::size_t;

  std::ostringstream out = {};
  bool showsTexts = true;  ///< what people see of values, too
  /// A weak pointer never mistakes a new element for one that was freed.
  std::map<boost::weak_ptr<const void>, TNumber> seen = {};
  TNumber next = 0;
  std::vector<boost::weak_ptr<ICIMClass>> classes = {};  ///< all that were seen
  std::function<void(TNumber, ICIMClass&)> meet = {};    ///< called for each that is new

  /// Shows which elements have gone.
  void ShowGone() {
    std::vector<TNumber> gone;
    for (auto at = seen.begin(); at != seen.end();) {
      if (at->first.expired()) gone.push_back(at->second);
      at = at->first.expired() ? seen.erase(at) : std::next(at);
    }
    std::sort(gone.begin(), gone.end());
    for (const TNumber number : gone) out << " gone #" << number;
  }

  /// As if what has this number, and what came later, had not been seen.
  void Forget(TNumber number) {
    for (auto at = seen.begin(); at != seen.end();) {
      at = at->second >= number ? seen.erase(at) : std::next(at);
    }
    next = number;
  }

  template <class T>
  std::string Text(const TPtr<T>& element) {
    if (!element) return "none";
    const auto [entry, isNew] = seen.emplace(element, next);
    if (isNew) ++next;
    if constexpr (std::is_same_v<T, ICIMClass>) {
      if (isNew) {
        classes.emplace_back(element);
        if (meet) meet(entry->second, *element);
      }
    }
    return Name(*element) + "#" + std::to_string(entry->second);
  }
  static std::string Text(const std::string* name) { return *name; }
  std::string Text(const TCIMValue& shown) {
    std::string text = ValueText(shown);
    if (shown.GetReferencedClass()) text += " of " + Text(shown.GetReferencedClass());
    return text;
  }
  static std::string ValueText(const TCIMValue& shown) {
    std::ostringstream text;
    text.exceptions(std::ios::badbit);  // lack of memory must not pass for a shorter text
    text << shown.GetType() << (shown.IsNull() ? " null" : " ");
    text << (IsTime(shown) ? "now" : shown.ToString(10));
    return text.str();
  }
  /// Each side has its own time.
  static bool IsTime(const TCIMValue& value) {
    return value.GetType() == TType::kDateTime && !value.IsNull() &&
           !static_cast<TCIMDateTime>(value).IsInterval();
  }
  template <class T>
  static std::string Name(const T& element) {
    if constexpr (std::is_same_v<T, ICIMInstance>) {
      return "instance of " + element.GetClass({})->GetName({});
    } else {
      return element.GetName({});
    }
  }

  template <class T>
  void ShowNamed(const TPtr<T>& element) {
    out << "\n  " << Text(element);
    const auto show = [&](const auto& one) {
      out << "\n    [" << Text(one) << ' ' << one->GetType({}) << " = " << Text(one->GetValue({}))
          << " flavor " << one->GetFlavor({}) << (one->GetPropagated({}) ? " propagated]" : "]");
      return true;
    };
    element->EnumerateQualifiers(show, {});
  }
  void ShowProperty(const TPtr<ICIMProperty>& one) {
    out << "\n  " << Text(one->GetDeclaration({})) << ' ' << one->GetType({}) << one->IsArray({})
        << one->IsDefaultValue({}) << one->GetPropagated({}) << ' ' << Text(one->GetValue({}));
    out << " was " << one->IsPrevValueDifferent() << Text(one->GetPrevValue());
    const bool isDate = Contains(Text(one->GetValue({})) + Text(one->GetPrevValue()), "datetime");
    if (isDate || !showsTexts) return;
    out << " shown " << one->ToString() << '|' << one->PrevValueToString();
  }
  void ShowClass(const TPtr<ICIMClass>& cimClass) {
    ShowNamed(cimClass);
    out << " under " << Text(cimClass->GetSuperClass({})) << cimClass->IsRootClass({})
        << (cimClass->GetNamespace({}) != nullptr);
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
    cimClass->EnumeratePropertyDecls(property, {});
    cimClass->EnumerateMethodDecls(method, {});
    out << "\n  flags " << cimClass->IsAbstract({}) << cimClass->IsAssociation({});
  }
};

}  // namespace NZELVYR20
