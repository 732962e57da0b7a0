#pragma once

#include <set>

#include "TFaults.h"
#include "TModelTable.h"
#include "Values.h"

namespace NZELVYR20 {

/// One row for each operation: how often it is drawn, how people read it, and what it does.
struct TOperation {
  int weight;
  const char* pattern;
  void (*run)(TWorld&);
};

inline void AllocateClass(TWorld& w) {
  const std::string& name = w.In(kClasses);
  const auto super = w.flag % 3 == 0 ? TPtr<ICIMClass>() : w.c[w.b];
  // A class below one of its own name could, by redefinition, become its own descendant.
  for (auto at = super; at; at = at->GetSuperClass({})) {
    if (boost::algorithm::iequals(at->GetName({}), name)) return;
  }
  w.c[w.a] = w.N()->AllocateClass(name, super, {});
  const TFaults::TPause pause;  // a class that lost its superclass is not refreshed twice alike
  w.out << w.Text(w.c(w.a));
}

inline void GetInstance(TWorld& w) {
  const auto found = w.N()->GetInstance(static_cast<TCIMReference>(w.Value()), {});
  w.out << w.Text(found);
  if (found) w.i[w.b] = found;
}

inline void Forget(TWorld& w) {
  if (w.flag % 4 == 0) w.c[w.a] = {};
  if (w.flag % 4 == 1) w.i[w.b] = {};
  if (w.flag % 4 == 2) w.d[w.b] = {}, w.m[w.b] = {};
  if (w.flag % 4 == 3) w.q[w.a] = {}, w.p[w.a] = {};
}

inline void HostAnswers(TWorld& w) {
  w.answer = w.flag;
  w.answered = w.flag % 4 == 0 ? TPtr<ICIMInstance>() : w.i(w.b);
}

inline void ShowInstance(TWorld& w) {
  w.out << w.Text(w.i(w.b)) << w.I()->GetReference({}).GetPath() << w.I()->BuildPath({}).ToString();
  std::set<TPtr<ICIMProperty>> owners;
  const auto show = [&](const auto& one) {
    w.ShowProperty(one);
    return owners.insert(one).second;
  };
  w.I()->EnumerateProperties(show, {});
  w.out << "\n  of " << owners.size() << " owners";
}

inline void UseProperty(TWorld& w) {
  const auto property = w.I()->GetProperty(w.In(kProperties), {});
  const auto again = w.I()->GetProperty(w.In(kProperties), {});
  w.out << (property == again) << (property < again || again < property);
  w.ShowProperty(property);
  if (w.flag % 4 == 0) property->SetPrevValue();
  if (w.flag % 4 == 1) property->SetPrevValue(w.Value());
  if (w.flag % 4 == 2) property->SetValue(w.Value(), {});
}

// The first rows are those that recipes name.
enum ERow {
  kSpace,
  kClass,
  kAddClass,
  kDeclare,
  kAddDeclared,
  kAttach,
  kProperty,
  kAddProperty,
  kInstance,
  kSet,
  kAddInstance,
  kMethod,
  kAddMethod,
  kReferences,
  kAssociators,
  kGetClass,
  kGetInstance,
  kDelete,
  kForget,
  kRemoveClass,
  kRemoveProperty,
  kSubClasses,
  kParameter,
  kAddParameter,
};

#define MODEL_ROW(weight, pattern, ...)             \
  {                                                 \
    weight, pattern, [](TWorld& w) { __VA_ARGS__; } \
  }
#define MODEL_WALK(weight, pattern, ...) \
  MODEL_ROW(weight, pattern, w.List([&](const auto& take) { __VA_ARGS__; }))
inline const TOperation kOperations[] = {
    MODEL_ROW(0, "N = a namespace, with redefinition if flag is odd",
              w.n[w.space] = w.allocate(w.flag % 2 == 1)),
    MODEL_ROW(1, "c@a = @N.AllocateClass(@C, c@b or root)", AllocateClass(w)),
    MODEL_ROW(3, "c@a.AddToNamespace()", Require(w.C()->GetSuperClass({}) != nullptr);
              w.C()->AddToNamespace({})),
    MODEL_ROW(1, "q@a = @N.AllocateQualifierDecl(@Q, @V, flavor @F)",
              w.q[w.a] = w.N()->AllocateQualifierDecl(w.In(kQualifiers), w.Default(),
                                                      ICIMQualifierDecl::kAny, w.Flavor(), {})),
    MODEL_ROW(1, "q@a.AddToNamespace()", w.Q()->AddToNamespace({})),
    MODEL_ROW(6, "@E.AllocateQualifier(q@F, @V).AddToClassOrProperty()",
              w.OnElement([&](const auto& e) {
                w.Attach(e->AllocateQualifier(w.q(w.flag), w.Default(), {}), *e);
              })),
    MODEL_ROW(4, "d@b = c@a.AllocatePropertyDecl(@P, @V)",
              w.d[w.b] = w.C()->AllocatePropertyDecl(w.In(kProperties), w.Default(), {})),
    MODEL_ROW(6, "d@b.AddToClass()", Require(w.Lives(*w.D())); w.D()->AddToClass({})),
    MODEL_ROW(1, "i@b = c@a.AllocateInstance()",
              w.out << w.Text(w.i[w.b] = w.C()->AllocateInstance({}))),
    MODEL_ROW(8, "i@b.SetPropertyValue(@P, @V)",
              w.I()->SetPropertyValue(w.In(kProperties), w.Value(), {})),
    MODEL_ROW(4, "i@b.AddToNamespace()", w.I()->AddToNamespace({})),
    MODEL_ROW(2, "m@b = c@a.AllocateMethodDecl(@M, type @F)",
              w.m[w.b] = w.C()->AllocateMethodDecl(
                  w.In(kMethods), w.flag % 2 == 0 ? TType::kString : TType::kUInt8, {})),
    MODEL_ROW(4, "m@b.AddToClass()", Require(w.Lives(*w.M())); w.M()->AddToClass({})),
    MODEL_WALK(6, "i@b.EnumerateAssociationInstances(@1, @2; conduct @F)",
               w.I()->EnumerateAssociationInstances(take, w.Maybe(kClasses, w.name),
                                                    w.Maybe(kProperties, w.value), {})),
    MODEL_WALK(9, "i@b.EnumerateAssociatedInstances(@1, @3, @2, @4; conduct @F)",
               w.I()->EnumerateAssociatedInstances(
                   take, w.Maybe(kClasses, w.name), kClasses[w.a * w.a / 8],
                   w.Maybe(kProperties, w.value), w.Maybe(kProperties, w.flag), {})),
    MODEL_ROW(1, "c@a = @N.GetClass(@C)",
              w.out << w.Text(w.c[w.a] = w.N()->GetClass(w.In(kClasses), {}))),
    MODEL_ROW(2, "i@b = @N.GetInstance(@V)", GetInstance(w)),
    MODEL_ROW(1, "i@b.Delete()", w.I()->Delete({})),
    MODEL_ROW(1, "forget c@a, i@b, d@b and m@b, or q@a, by @F", Forget(w)),
    MODEL_ROW(1, "c@a.RemoveFromNamespace()", w.C()->RemoveFromNamespace({})),
    MODEL_ROW(1, "c@a.RemovePropertyDecl(d@b)", w.C()->RemovePropertyDecl(w.d(w.b))),
    MODEL_WALK(2, "c@a.EnumerateSubClasses(conduct @F, deep if @b is odd)",
               w.C()->EnumerateSubClasses(take, w.b % 2 == 1, {})),
    MODEL_ROW(2, "p@a = m@b.AllocateParameterDecl(@M, type @F)",
              w.p[w.a] = w.M()->AllocateParameterDecl(
                  w.In(kMethods), w.flag % 2 == 0 ? TType::kString : TType::kUInt8Array, {})),
    MODEL_ROW(2, "p@a.AddToMethod()", Require(w.Lives(*w.p(w.a))); w.p(w.a)->AddToMethod({})),
    MODEL_ROW(1, "q@a.SetFlavor(@F), or UnsetFlavor or SetDefaultValue(@V), by @b",
              if (w.b % 3 == 0) w.Q()->SetFlavor(w.Flavor(), {});
              if (w.b % 3 == 1) w.Q()->UnsetFlavor(w.Flavor(), {});
              if (w.b % 3 == 2) w.Q()->SetDefaultValue(w.Default(), {})),
    MODEL_ROW(1, "@N.GetQualifierDecl(@Q)",
              const auto found = w.N()->GetQualifierDecl(w.In(kQualifiers), {});
              w.out << w.Text(found);
              if (found) w.out << w.Text(found->GetDefaultValue({})) << found->GetFlavor({})),
    MODEL_ROW(4, "@E.AllocateQualifier(q@n, @V, flavor @F).AddToClassOrProperty()",
              w.OnElement([&](const auto& e) {
                w.Attach(e->AllocateQualifier(w.q(w.name), w.Default(), w.Flavor(), {}), *e);
              })),
    MODEL_ROW(3, "@E.GetQualifier(@Q).SetFlavor(@F), or UnsetFlavor or SetValue(@V), by @F",
              w.OnElement([&](const auto& e) {
                const auto found = e->GetQualifier(w.In(kQualifiers), {});
                w.out << w.Text(found);
                Require(found && w.Lives(*e));
                if (w.flag % 3 == 0) found->SetFlavor(w.Flavor(), {});
                if (w.flag % 3 == 1) found->UnsetFlavor(w.Flavor(), {});
                if (w.flag % 3 == 2) found->SetValue(w.Default(), {});
              })),
    MODEL_ROW(2, "@E.GetQualifier(@Q, found)", w.OnElement([&](const auto& e) {
      bool found = false;
      w.out << w.Text(e->GetQualifier(w.In(kQualifiers), found, {})) << found;
    })),
    MODEL_ROW(2, "@E.EnumerateQualifiers(conduct @F)", w.OnElement([&](const auto& e) {
      w.List([&](const auto& take) { e->EnumerateQualifiers(take, {}); });
    })),
    MODEL_ROW(1, "c@a.AddPropertyDecl(d@b)", w.C()->AddPropertyDecl(w.d(w.b))),
    MODEL_ROW(3, "d@b = c@a.GetPropertyDecl(@P)",
              w.out << w.Text(w.d[w.b] = w.C()->GetPropertyDecl(w.In(kProperties), {}))),
    MODEL_ROW(1, "d@b.SetDefaultValue(@V)", Require(w.Lives(*w.D()));
              w.D()->SetDefaultValue(w.Default(), {})),
    MODEL_ROW(1, "c@a.RemoveMethodDecl(m@b)", w.C()->RemoveMethodDecl(w.m(w.b))),
    MODEL_ROW(1, "m@b = c@a.GetMethodDecl(@M)",
              w.out << w.Text(w.m[w.b] = w.C()->GetMethodDecl(w.In(kMethods), {}))),
    MODEL_ROW(1, "p@a = m@b.GetParameterDecl(@M)",
              w.p[w.a] = w.M()->GetParameterDecl(w.In(kMethods), {});
              w.ShowNamed(w.p(w.a)); w.out << w.p(w.a)->GetType({}) << w.p(w.a)->IsArray({})),
    MODEL_WALK(2, "m@b.EnumerateParameterDecls(conduct @F)",
               TCIMParameterDeclCallback callback = take;
               w.M()->EnumerateParameterDecls(callback, {})),
    MODEL_ROW(2, "to paths in its own namespace the host gives i@b or another by @f",
              HostAnswers(w)),
    MODEL_ROW(1, "i@b.Validate()", w.I()->Validate({})),
    MODEL_ROW(6, "i@b.GetProperty(@P), shown; SetPrevValue(@V), or SetValue, by @F",
              UseProperty(w)),
    MODEL_ROW(3, "c@a.IsSubclassOf(c@b)", w.out << w.C()->IsSubclassOf(w.c(w.b), {})),
    MODEL_WALK(1, "@N.EnumerateRootClasses(conduct @F)", w.N()->EnumerateRootClasses(take, {})),
    MODEL_WALK(1, "@N.EnumerateQualifierDecls(conduct @F)",
               w.N()->EnumerateQualifierDecls(take, {})),
    MODEL_WALK(3, "c@a.EnumerateInstances(conduct @F, deep if @b is odd)",
               w.C()->EnumerateInstances(take, w.b % 2 == 1, {})),
    MODEL_WALK(1, "c@a.EnumeratePropertyDecls(conduct @F)",
               w.C()->EnumeratePropertyDecls(take, {})),
    MODEL_WALK(1, "c@a.EnumerateMethodDecls(conduct @F)", w.C()->EnumerateMethodDecls(take, {})),
    MODEL_WALK(2, "c@a.EnumerateKeyNames(conduct @F)", w.C()->EnumerateKeyNames(take, {})),
    MODEL_WALK(4, "c@a.EnumerateAssociationClasses(@1, @2; conduct @F)",
               w.C()->EnumerateAssociationClasses(take, w.Maybe(kClasses, w.name),
                                                  w.Maybe(kProperties, w.value), {})),
    MODEL_WALK(4, "c@a.EnumerateAssociatedClasses(@1, @3, @2, @4; conduct @F)",
               w.C()->EnumerateAssociatedClasses(
                   take, w.Maybe(kClasses, w.name), w.Maybe(kClasses, w.a* w.a / 8),
                   w.Maybe(kProperties, w.value), w.Maybe(kProperties, w.flag), {})),
    MODEL_ROW(5, "show c@a", w.ShowClass(w.c(w.a))),
    MODEL_ROW(5, "show i@b", ShowInstance(w)),
    MODEL_ROW(1, "@N.ClearInstances() if @f is 0", if (w.flag == 0) w.N()->ClearInstances()),
    MODEL_ROW(0, "everything is let go of", w.Clear()),
};
constexpr int kLetGo = static_cast<int>(std::size(kOperations)) - 1;

inline bool IsWalk(const TStep& step) {
  return Contains(kOperations[step.operation].pattern, "conduct");
}

/// What it does, with the numbers after "@" in the words.
inline std::string ToText(const TStep& s) {
  std::ostringstream text;
  text << kOperations[s.operation].pattern << "  space " << s.space << " a " << s.a << " b " << s.b
       << " name " << s.name << " value " << s.value << " flag " << s.flag;
  if (s.inner > 0) text << " doing the next " << s.inner;
  if (s.fault > 0) text << " with fault " << s.fault;
  return text.str();
}

inline void TWorld::Do(const TStep& step) {
  Set(step);
  try {
    kOperations[operation].run(*this);
  } catch (const TVYRException& failure) {
    out << (typeid(failure) == typeid(TVYRException) ? " status " : " derived status ")
        << failure.GetStatusCode();
  } catch (const TNothingThere&) {
    out << " nothing there";
  } catch (int) {
    out << " thrown by the callback";
  }
}

}  // namespace NZELVYR20
