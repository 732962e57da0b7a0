#pragma once

#include <set>

#include "TFaults.h"
#include "TModelTable.h"
#include "Values.h"

namespace NZELVYR20 {

/// One row for each operation: how often it is drawn, what it does, and the same as people read it.
/// What only does something may be given up where it fails; the rest has something to show for it.
struct TOperation {
  enum EKind { kDoes, kShows, kWalks };

  int weight;
  EKind kind;
  void (*run)(TWorld&);
  const char* text;
};

inline void AllocateClass(TWorld& w) {
  const std::string& name = w.In(kClasses);
  const auto super = w.flag % 3 == 0 ? TPtr<ICIMClass>() : w.c[w.b];
  // A class below one of its own name could, by redefinition, become its own descendant.
  for (auto at = super; at; at = at->GetSuperClass({})) {
    if (boost::algorithm::iequals(at->GetName({}), name)) return;
  }
  w.c[w.a] = w.N()->AllocateClass(name, super, {});
  TFaults::Disarm();  // a class that lost its superclass is not refreshed twice alike
  w.out << w.Text(w.c(w.a));
}

inline void Forget(TWorld& w) {
  if (w.flag % 4 == 0) w.c[w.a] = {};
  if (w.flag % 4 == 1) w.i[w.b] = {};
  if (w.flag % 4 == 2) w.d[w.b] = {}, w.m[w.b] = {};
  if (w.flag % 4 == 3) w.q[w.a] = {}, w.p[w.a] = {};
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

#define MODEL_ROW(weight, kind, ...)                                       \
  {                                                                        \
    weight, TOperation::kind, [](TWorld& w) { __VA_ARGS__; }, #__VA_ARGS__ \
  }
#define MODEL_DO(weight, ...) MODEL_ROW(weight, kDoes, __VA_ARGS__)
#define MODEL_SHOW(weight, ...) MODEL_ROW(weight, kShows, __VA_ARGS__)
#define MODEL_WALK(weight, ...) \
  MODEL_ROW(weight, kWalks, w.List([&](const auto& take) { __VA_ARGS__; }))
inline const TOperation kOperations[] = {
    MODEL_SHOW(0, w.n[w.space] = w.allocate(w.flag % 2 == 1)),
    MODEL_DO(1, AllocateClass(w)),
    MODEL_DO(3, Require(w.C()->GetSuperClass({}) != nullptr); w.C()->AddToNamespace({})),
    MODEL_SHOW(1, w.q[w.a] = w.N()->AllocateQualifierDecl(w.In(kQualifiers), w.Default(),
                                                          ICIMQualifierDecl::kAny, w.Flavor(), {})),
    MODEL_DO(1, w.Q()->AddToNamespace({})),
    MODEL_DO(6, w.OnElement([&](const auto& e) {
      w.Attach(e->AllocateQualifier(w.q(w.flag), w.Default(), {}), *e);
    })),
    MODEL_SHOW(4, w.d[w.b] = w.C()->AllocatePropertyDecl(w.In(kProperties), w.Default(), {})),
    MODEL_DO(6, Require(w.Lives(*w.D())); w.D()->AddToClass({})),
    MODEL_SHOW(1, w.out << w.Text(w.i[w.b] = w.C()->AllocateInstance({}))),
    MODEL_DO(8, w.I()->SetPropertyValue(w.In(kProperties), w.Value(), {})),
    MODEL_DO(4, w.I()->AddToNamespace({})),
    MODEL_SHOW(2, w.m[w.b] = w.C()->AllocateMethodDecl(
                      w.In(kMethods), w.flag % 2 == 0 ? TType::kString : TType::kUInt8, {})),
    MODEL_DO(4, Require(w.Lives(*w.M())); w.M()->AddToClass({})),
    MODEL_WALK(6, w.I()->EnumerateAssociationInstances(take, w.Maybe(kClasses, w.name),
                                                       w.Maybe(kProperties, w.value), {})),
    MODEL_WALK(9, w.I()->EnumerateAssociatedInstances(
                      take, w.Maybe(kClasses, w.name), kClasses[w.a * w.a / 8],
                      w.Maybe(kProperties, w.value), w.Maybe(kProperties, w.flag), {})),
    MODEL_SHOW(1, w.out << w.Text(w.c[w.a] = w.N()->GetClass(w.In(kClasses), {}))),
    MODEL_SHOW(2, const auto found = w.N()->GetInstance(static_cast<TCIMReference>(w.Value()), {});
               w.out << w.Text(found); if (found) w.i[w.b] = found),
    MODEL_DO(1, w.I()->Delete({})),
    MODEL_SHOW(1, Forget(w)),
    MODEL_DO(1, w.C()->RemoveFromNamespace({})),
    MODEL_DO(1, w.C()->RemovePropertyDecl(w.d(w.b))),
    MODEL_WALK(2, w.C()->EnumerateSubClasses(take, w.b % 2 == 1, {})),
    MODEL_SHOW(2, w.p[w.a] = w.M()->AllocateParameterDecl(
                      w.In(kMethods), w.flag % 2 == 0 ? TType::kString : TType::kUInt8Array, {})),
    MODEL_DO(2, Require(w.Lives(*w.p(w.a))); w.p(w.a)->AddToMethod({})),
    MODEL_SHOW(1, if (w.b % 3 == 0) w.Q()->SetFlavor(w.Flavor(), {});
               if (w.b % 3 == 1) w.Q()->UnsetFlavor(w.Flavor(), {});
               if (w.b % 3 == 2) w.Q()->SetDefaultValue(w.Default(), {})),
    MODEL_DO(1, const auto found = w.N()->GetQualifierDecl(w.In(kQualifiers), {});
             w.out << w.Text(found);
             if (found) w.out << w.Text(found->GetDefaultValue({})) << found->GetFlavor({})),
    MODEL_DO(4, w.OnElement([&](const auto& e) {
      w.Attach(e->AllocateQualifier(w.q(w.name), w.Default(), w.Flavor(), {}), *e);
    })),
    MODEL_SHOW(3, w.OnElement([&](const auto& e) {
      const auto found = e->GetQualifier(w.In(kQualifiers), {});
      w.out << w.Text(found);
      Require(found && w.Lives(*e));
      if (w.flag % 3 == 0) found->SetFlavor(w.Flavor(), {});
      if (w.flag % 3 == 1) found->UnsetFlavor(w.Flavor(), {});
      if (w.flag % 3 == 2) found->SetValue(w.Default(), {});
    })),
    MODEL_DO(2, w.OnElement([&](const auto& e) {
      bool found = false;
      w.out << w.Text(e->GetQualifier(w.In(kQualifiers), found, {})) << found;
    })),
    MODEL_ROW(2, kWalks, w.OnElement([&](const auto& e) {
      w.List([&](const auto& take) { e->EnumerateQualifiers(take, {}); });
    })),
    MODEL_DO(1, w.C()->AddPropertyDecl(w.d(w.b))),
    MODEL_SHOW(3, w.out << w.Text(w.d[w.b] = w.C()->GetPropertyDecl(w.In(kProperties), {}))),
    MODEL_DO(1, Require(w.Lives(*w.D())); w.D()->SetDefaultValue(w.Default(), {})),
    MODEL_DO(1, w.C()->RemoveMethodDecl(w.m(w.b))),
    MODEL_SHOW(1, w.out << w.Text(w.m[w.b] = w.C()->GetMethodDecl(w.In(kMethods), {}))),
    MODEL_SHOW(1, w.p[w.a] = w.M()->GetParameterDecl(w.In(kMethods), {}); w.ShowNamed(w.p(w.a));
               w.out << w.p(w.a)->GetType({}) << w.p(w.a)->IsArray({})),
    MODEL_WALK(2, TCIMParameterDeclCallback callback = take;
               w.M()->EnumerateParameterDecls(callback, {})),
    MODEL_SHOW(2, w.answered = w.i(w.b); w.answer = w.flag),
    MODEL_DO(1, w.I()->Validate({})),
    MODEL_SHOW(6, UseProperty(w)),
    MODEL_DO(3, w.out << w.C()->IsSubclassOf(w.c(w.b), {})),
    MODEL_WALK(1, w.N()->EnumerateRootClasses(take, {})),
    MODEL_WALK(1, w.N()->EnumerateQualifierDecls(take, {})),
    MODEL_WALK(3, w.C()->EnumerateInstances(take, w.b % 2 == 1, {})),
    MODEL_WALK(1, w.C()->EnumeratePropertyDecls(take, {})),
    MODEL_WALK(1, w.C()->EnumerateMethodDecls(take, {})),
    MODEL_WALK(2, w.C()->EnumerateKeyNames(take, {})),
    MODEL_WALK(4, w.C()->EnumerateAssociationClasses(take, w.Maybe(kClasses, w.name),
                                                     w.Maybe(kProperties, w.value), {})),
    MODEL_WALK(4, w.C()->EnumerateAssociatedClasses(
                      take, w.Maybe(kClasses, w.name), w.Maybe(kClasses, w.a* w.a / 8),
                      w.Maybe(kProperties, w.value), w.Maybe(kProperties, w.flag), {})),
    MODEL_SHOW(5, w.ShowClass(w.c(w.a))),
    MODEL_SHOW(5, ShowInstance(w)),
    MODEL_SHOW(1, if (w.flag == 0) w.N()->ClearInstances()),
    MODEL_SHOW(0, w.Clear()),
};
inline bool IsWalk(int row) { return kOperations[row].kind == TOperation::kWalks; }
/// The first row with that in it.
inline int FindRow(const std::string& part) {
  const auto has = [&](const TOperation& operation) { return Contains(operation.text, part); };
  const auto* const found = std::find_if(std::begin(kOperations), std::end(kOperations), has);
  if (found == std::end(kOperations)) throw std::invalid_argument(part);
  return static_cast<int>(found - kOperations);
}

inline std::string ToText(const TStep& s) {
  std::ostringstream text;
  text << kOperations[s.operation].text << "  space " << s.space << " a " << s.a << " b " << s.b
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
