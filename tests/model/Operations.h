#pragma once

#include <boost/algorithm/string/split.hpp>

#include "TWorld.h"

namespace NZELVYR20 {

inline TPool Pool(const std::string& names) {
  TPool pool;
  return boost::algorithm::split(pool, names, [](char c) { return c == '|'; });
}
inline const TPool kClasses = Pool(
    "CIM_Foo|CIM_Bar|CIM_Qux|Baz|ZELSG_PhysicalNetworkPort|CIM_L|CIM_M|CIM_N|cim_foo|BAZ||1bad|"
    "<root>|<ROOT>|zelsg_physicalnetworkport");
inline const TPool kProperties = Pool(
    "Name|Antecedent|Dependent|NAME|dependent|Speed|speed|PortType|linkporttype|LinkPortTypeInfo|"
    "speedDuplex|XspeedDuplex|SpeedDuplex|HealthState|healthstate|XHealthStateY|Description|"
    "MyDescription|description|DateTimeOfCollection|9x|a-b||HealthStateDescription|"
    "CommunicationStatus|DetailedStatus|OperatingStatus|PrimaryStatus");
inline const TPool kMethods = Pool("Reset|RESET|Stop|PortType|a b");
inline const TPool kQualifiers =
    Pool("KEY|OVERRIDE|ASSOCIATION|ABSTRACT|NULLDISPLAY|BASE|Version|key|Override|version|9");

/// One row for each operation: how often it is drawn, how people read it, and what it does.
struct TOperation {
  int weight;
  const char* pattern;
  void (*onPlugin)(TWorld<false>&);
  void (*onModel)(TWorld<true>&);

  template <class TFunction>
  TOperation(int often, const char* text, TFunction function)
      : weight(often), pattern(text), onPlugin(function), onModel(function) {}
};

template <bool kIsModel>
void AllocateClass(TWorld<kIsModel>& w) {
  const std::string& name = w.In(kClasses);
  auto super = w.c[w.s.b];
  if (w.s.flag % 3 == 0) super = {};
  // A class below one of its own name could, by redefinition, become its own descendant.
  for (auto at = super; at; at = at->GetSuperClass({})) {
    const std::string above = at->GetName({});
    const auto isSame = [](char x, char y) { return tolower(x) == tolower(y); };
    if (std::equal(above.begin(), above.end(), name.begin(), name.end(), isSame)) return;
  }
  w.c[w.s.a] = w.space->AllocateClass(name, super, {});
  w.kept.push_back(w.C());
  w.out << w.Text(w.C());
}

// The first rows are those that recipes name.
constexpr int kClass = 0, kAddClass = 1, kDeclare = 2, kAddDeclared = 3, kAttach = 4, kProperty = 5,
              kAddProperty = 6, kInstance = 7, kSet = 8, kAddInstance = 9, kMethod = 10,
              kAddMethod = 11, kReferences = 12, kAssociators = 13;

#define MODEL_ROW(weight, pattern, ...)           \
  {                                               \
    weight, pattern, [](auto& w) { __VA_ARGS__; } \
  }
#define MODEL_WALK(weight, pattern, isOrdered, ...) \
  MODEL_ROW(weight, pattern, w.List(isOrdered, [&](auto& take) { __VA_ARGS__; }))
inline const TOperation kOperations[] = {
    MODEL_ROW(1, "c@a = ns.AllocateClass(@C, c@b or root)", AllocateClass(w)),
    MODEL_ROW(3, "c@a.AddToNamespace()", if (!w.C()->IsRootClass({})) w.C()->AddToNamespace({})),
    MODEL_ROW(1, "q@a = ns.AllocateQualifierDecl(@Q, @V, flavor @F)",
              w.q[w.s.a] = w.space->AllocateQualifierDecl(w.In(kQualifiers), w.value,
                                                          ICIMQualifierDecl::kAny, w.Flavor(), {})),
    MODEL_ROW(1, "q@a.AddToNamespace()", w.Q()->AddToNamespace({})),
    MODEL_ROW(6, "@E.AllocateQualifier(q@F, @V).AddToClassOrProperty()", w.OnElement([&](auto& e) {
      w.Attach(e->AllocateQualifier(w.q(w.s.flag), w.value, {}), *e);
    })),
    MODEL_ROW(4, "d@b = c@a.AllocatePropertyDecl(@P, @V)",
              w.d[w.s.b] = w.C()->AllocatePropertyDecl(w.In(kProperties), w.value, {})),
    MODEL_ROW(6, "d@b.AddToClass()", w.D()->AddToClass({})),
    MODEL_ROW(2, "i@b = c@a.AllocateInstance()",
              w.out << w.Text(w.i[w.s.b] = w.C()->AllocateInstance({}))),
    MODEL_ROW(8, "i@b.SetPropertyValue(@P, @V)",
              w.I()->SetPropertyValue(w.In(kProperties), w.value, {})),
    MODEL_ROW(4, "i@b.AddToNamespace()", w.I()->AddToNamespace({})),
    MODEL_ROW(2, "m@b = c@a.AllocateMethodDecl(@M, type @F)",
              w.m[w.s.b] = w.C()->AllocateMethodDecl(
                  w.In(kMethods), w.s.flag % 2 == 0 ? TType::kString : TType::kUInt8, {});
              w.kept.push_back(w.M())),
    MODEL_ROW(4, "m@b.AddToClass()", w.M()->AddToClass({})),
    MODEL_WALK(6, "i@b.EnumerateAssociationInstances(@1, @2; conduct @F)", false,
               w.I()->EnumerateAssociationInstances(take, w.Maybe(kClasses, w.s.name),
                                                    w.Maybe(kProperties, w.s.value), {})),
    MODEL_WALK(9, "i@b.EnumerateAssociatedInstances(@1, @3, @2, @4; conduct @F)", false,
               w.I()->EnumerateAssociatedInstances(
                   take, w.Maybe(kClasses, w.s.name), kClasses[w.s.a * w.s.a / 8],
                   w.Maybe(kProperties, w.s.value), w.Maybe(kProperties, w.s.flag), {})),
    MODEL_ROW(1, "c@a.RemoveFromNamespace()", w.C()->RemoveFromNamespace({})),
    MODEL_ROW(1, "c@a = ns.GetClass(@C)",
              w.out << w.Text(w.c[w.s.a] = w.space->GetClass(w.In(kClasses), {}))),
    MODEL_ROW(1, "q@a.SetFlavor(@F), or UnsetFlavor or SetDefaultValue(@V), by @b",
              if (w.s.b % 3 == 0) w.Q()->SetFlavor(w.Flavor(), {});
              if (w.s.b % 3 == 1) w.Q()->UnsetFlavor(w.Flavor(), {});
              if (w.s.b % 3 == 2) w.Q()->SetDefaultValue(w.value, {})),
    MODEL_ROW(1, "ns.GetQualifierDecl(@Q)",
              const auto found = w.space->GetQualifierDecl(w.In(kQualifiers), {});
              w.out << w.Text(found);
              if (found) w.out << w.Text(found->GetDefaultValue({})) << found->GetFlavor({})),
    MODEL_ROW(4, "@E.AllocateQualifier(q@n, @V, flavor @F).AddToClassOrProperty()",
              w.OnElement([&](auto& e) {
                w.Attach(e->AllocateQualifier(w.q(w.s.name), w.value, w.Flavor(), {}), *e);
              })),
    MODEL_ROW(3, "@E.GetQualifier(@Q).SetFlavor(@F), or UnsetFlavor or SetValue(@V), by @F",
              w.OnElement([&](auto& e) {
                const auto found = e->GetQualifier(w.In(kQualifiers), {});
                w.out << w.Text(found);
                if (!found) return;
                if (w.s.flag % 3 == 0) found->SetFlavor(w.Flavor(), {});
                if (w.s.flag % 3 == 1) found->UnsetFlavor(w.Flavor(), {});
                if (w.s.flag % 3 == 2) found->SetValue(w.value, {});
              })),
    MODEL_ROW(2, "@E.GetQualifier(@Q, found)", w.OnElement([&](auto& e) {
      bool found = false;
      w.out << w.Text(e->GetQualifier(w.In(kQualifiers), found, {})) << found;
    })),
    MODEL_ROW(2, "@E.EnumerateQualifiers(conduct @F)", w.OnElement([&](auto& e) {
      w.List(true, [&](auto& take) { e->EnumerateQualifiers(take, {}); });
    })),
    MODEL_ROW(1, "c@a.AddPropertyDecl(d@b)", w.C()->AddPropertyDecl(w.D())),
    MODEL_ROW(1, "c@a.RemovePropertyDecl(d@b)", w.C()->RemovePropertyDecl(w.D())),
    MODEL_ROW(3, "d@b = c@a.GetPropertyDecl(@P)",
              w.out << w.Text(w.d[w.s.b] = w.C()->GetPropertyDecl(w.In(kProperties), {}))),
    MODEL_ROW(1, "d@b.SetDefaultValue(@V)", w.D()->SetDefaultValue(w.value, {})),
    MODEL_ROW(1, "c@a.RemoveMethodDecl(m@b)", w.C()->RemoveMethodDecl(w.M())),
    MODEL_ROW(1, "m@b = c@a.GetMethodDecl(@M)",
              w.out << w.Text(w.m[w.s.b] = w.C()->GetMethodDecl(w.In(kMethods), {}))),
    MODEL_ROW(1, "i@b.Validate()", w.I()->Validate({})),
    MODEL_ROW(1, "i@b.Delete()", w.I()->Delete({})),
    MODEL_ROW(6, "i@b.GetProperty(@P), shown; SetPrevValue(@V), or SetValue, by @F",
              const auto property = w.I()->GetProperty(w.In(kProperties), {});
              w.ShowProperty(property); if (w.s.flag % 4 == 0) property->SetPrevValue();
              if (w.s.flag % 4 == 1) property->SetPrevValue(w.value);
              if (w.s.flag % 4 == 2) property->SetValue(w.value, {})),
    MODEL_ROW(2, "ns.GetInstance(@V)",
              w.out << w.Text(w.space->GetInstance(static_cast<TCIMReference>(w.value), {}))),
    MODEL_ROW(2, "c@a.IsSubclassOf(c@b)", w.out << w.C()->IsSubclassOf(w.c(w.s.b), {})),
    MODEL_WALK(1, "ns.EnumerateRootClasses(conduct @F)", true,
               w.space->EnumerateRootClasses(take, {})),
    MODEL_WALK(1, "ns.EnumerateQualifierDecls(conduct @F)", true,
               w.space->EnumerateQualifierDecls(take, {})),
    MODEL_WALK(2, "c@a.EnumerateSubClasses(conduct @F, deep if @b is odd)", true,
               w.C()->EnumerateSubClasses(take, w.s.b % 2 == 1, {})),
    MODEL_WALK(3, "c@a.EnumerateInstances(conduct @F, deep if @b is odd)", true,
               w.C()->EnumerateInstances(take, w.s.b % 2 == 1, {})),
    MODEL_WALK(1, "c@a.EnumeratePropertyDecls(conduct @F)", true,
               w.C()->EnumeratePropertyDecls(take, {})),
    MODEL_WALK(1, "c@a.EnumerateMethodDecls(conduct @F)", true,
               w.C()->EnumerateMethodDecls(take, {})),
    MODEL_WALK(2, "c@a.EnumerateKeyNames(conduct @F)", true, w.C()->EnumerateKeyNames(take, {})),
    MODEL_WALK(4, "c@a.EnumerateAssociationClasses(@1, @2; conduct @F)", false,
               w.C()->EnumerateAssociationClasses(take, w.Maybe(kClasses, w.s.name),
                                                  w.Maybe(kProperties, w.s.value), {})),
    MODEL_ROW(5, "show c@a", w.ShowClass()),
    MODEL_ROW(5, "show i@b",
              w.out << w.Text(w.I()) << w.I()->GetReference({}).GetPath()
                    << w.I()->GetReference({}).ToString();
              w.I()->EnumerateProperties(
                  [&](const auto& one) {
                    w.ShowProperty(one);
                    return true;
                  },
                  {})),
    MODEL_ROW(1, "ns.ClearInstances() if @f is 0", if (w.s.flag == 0) w.space->ClearInstances()),
};

}  // namespace NZELVYR20
