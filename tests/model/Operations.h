#pragma once

#include "TWorld.h"

namespace NZELVYR20 {

inline const TPool kClasses = {
    "CIM_Foo", "CIM_Bar", "CIM_Qux", "Baz",     "ZELSG_PhysicalNetworkPort",
    "CIM_L",   "CIM_M",   "CIM_N",   "cim_foo", "BAZ",
    "",        "1bad",    "<root>",  "<ROOT>",  "zelsg_physicalnetworkport"};
inline const TPool kProperties = {"Name",
                                  "Antecedent",
                                  "Dependent",
                                  "NAME",
                                  "dependent",
                                  "Speed",
                                  "speed",
                                  "PortType",
                                  "linkporttype",
                                  "LinkPortTypeInfo",
                                  "speedDuplex",
                                  "XspeedDuplex",
                                  "SpeedDuplex",
                                  "HealthState",
                                  "healthstate",
                                  "XHealthStateY",
                                  "Description",
                                  "MyDescription",
                                  "description",
                                  "DateTimeOfCollection",
                                  "9x",
                                  "a-b",
                                  ""};
inline const TPool kMethods = {"Reset", "RESET", "Stop", "PortType", "a b"};
inline const TPool kQualifiers = {"KEY",  "OVERRIDE", "ASSOCIATION", "ABSTRACT", "NULLDISPLAY",
                                  "BASE", "Version",  "key",         "Override", "version",
                                  "9"};

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
enum : int {
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
  kAssociators
};

inline const TOperation kOperations[] = {
    {1, "c@a = ns.AllocateClass(@C, c@b or root)", [](auto& w) { AllocateClass(w); }},
    {3, "c@a.AddToNamespace()",
     [](auto& w) {
       if (!w.C()->IsRootClass({})) w.C()->AddToNamespace({});
     }},
    {1, "q@a = ns.AllocateQualifierDecl(@Q, @V, flavor @F)",
     [](auto& w) {
       w.q[w.s.a] = w.space->AllocateQualifierDecl(w.In(kQualifiers), w.value,
                                                   ICIMQualifierDecl::kAny, w.Flavor(), {});
     }},
    {1, "q@a.AddToNamespace()", [](auto& w) { w.Q()->AddToNamespace({}); }},
    {6, "@E.AllocateQualifier(q@F, @V).AddToClassOrProperty()",
     [](auto& w) {
       w.OnElement(
           [&](auto& e) { w.Attach(e->AllocateQualifier(w.q(w.s.flag), w.value, {}), *e); });
     }},
    {4, "d@b = c@a.AllocatePropertyDecl(@P, @V)",
     [](auto& w) { w.d[w.s.b] = w.C()->AllocatePropertyDecl(w.In(kProperties), w.value, {}); }},
    {6, "d@b.AddToClass()", [](auto& w) { w.D()->AddToClass({}); }},
    {2, "i@b = c@a.AllocateInstance()",
     [](auto& w) { w.out << w.Text(w.i[w.s.b] = w.C()->AllocateInstance({})); }},
    {8, "i@b.SetPropertyValue(@P, @V)",
     [](auto& w) { w.I()->SetPropertyValue(w.In(kProperties), w.value, {}); }},
    {4, "i@b.AddToNamespace()", [](auto& w) { w.I()->AddToNamespace({}); }},
    {2, "m@b = c@a.AllocateMethodDecl(@M, type @F)",
     [](auto& w) {
       w.m[w.s.b] = w.C()->AllocateMethodDecl(
           w.In(kMethods), w.s.flag % 2 == 0 ? TType::kString : TType::kUInt8, {});
       w.kept.push_back(w.M());
     }},
    {4, "m@b.AddToClass()", [](auto& w) { w.M()->AddToClass({}); }},
    {6, "i@b.EnumerateAssociationInstances(@1, @2; conduct @F)",
     [](auto& w) {
       w.List(false, [&](auto& take) {
         w.I()->EnumerateAssociationInstances(take, w.Maybe(kClasses, w.s.name),
                                              w.Maybe(kProperties, w.s.value), {});
       });
     }},
    {9, "i@b.EnumerateAssociatedInstances(@1, @3, @2, @4; conduct @F)",
     [](auto& w) {
       w.List(false, [&](auto& take) {
         w.I()->EnumerateAssociatedInstances(
             take, w.Maybe(kClasses, w.s.name), kClasses[w.s.a * w.s.a / 8],
             w.Maybe(kProperties, w.s.value), w.Maybe(kProperties, w.s.flag), {});
       });
     }},
    {1, "c@a.RemoveFromNamespace()", [](auto& w) { w.C()->RemoveFromNamespace({}); }},
    {1, "c@a = ns.GetClass(@C)",
     [](auto& w) { w.out << w.Text(w.c[w.s.a] = w.space->GetClass(w.In(kClasses), {})); }},
    {1, "q@a.SetFlavor(@F), or UnsetFlavor or SetDefaultValue(@V), by @b",
     [](auto& w) {
       if (w.s.b % 3 == 0) w.Q()->SetFlavor(w.Flavor(), {});
       if (w.s.b % 3 == 1) w.Q()->UnsetFlavor(w.Flavor(), {});
       if (w.s.b % 3 == 2) w.Q()->SetDefaultValue(w.value, {});
     }},
    {1, "ns.GetQualifierDecl(@Q)",
     [](auto& w) {
       const auto found = w.space->GetQualifierDecl(w.In(kQualifiers), {});
       w.out << w.Text(found);
       if (found) w.out << w.Text(found->GetDefaultValue({})) << found->GetFlavor({});
     }},
    {4, "@E.AllocateQualifier(q@n, @V, flavor @F).AddToClassOrProperty()",
     [](auto& w) {
       w.OnElement([&](auto& e) {
         w.Attach(e->AllocateQualifier(w.q(w.s.name), w.value, w.Flavor(), {}), *e);
       });
     }},
    {3, "@E.GetQualifier(@Q).SetFlavor(@F), or UnsetFlavor or SetValue(@V), by @F",
     [](auto& w) {
       w.OnElement([&](auto& e) {
         const auto found = e->GetQualifier(w.In(kQualifiers), {});
         w.out << w.Text(found);
         if (!found) return;
         if (w.s.flag % 3 == 0) found->SetFlavor(w.Flavor(), {});
         if (w.s.flag % 3 == 1) found->UnsetFlavor(w.Flavor(), {});
         if (w.s.flag % 3 == 2) found->SetValue(w.value, {});
       });
     }},
    {2, "@E.GetQualifier(@Q, found)",
     [](auto& w) {
       w.OnElement([&](auto& e) {
         bool found = false;
         w.out << w.Text(e->GetQualifier(w.In(kQualifiers), found, {})) << found;
       });
     }},
    {2, "@E.EnumerateQualifiers(conduct @F)",
     [](auto& w) {
       w.OnElement(
           [&](auto& e) { w.List(true, [&](auto& take) { e->EnumerateQualifiers(take, {}); }); });
     }},
    {1, "c@a.AddPropertyDecl(d@b)", [](auto& w) { w.C()->AddPropertyDecl(w.D()); }},
    {1, "c@a.RemovePropertyDecl(d@b)", [](auto& w) { w.C()->RemovePropertyDecl(w.D()); }},
    {3, "d@b = c@a.GetPropertyDecl(@P)",
     [](auto& w) { w.out << w.Text(w.d[w.s.b] = w.C()->GetPropertyDecl(w.In(kProperties), {})); }},
    {1, "d@b.SetDefaultValue(@V)", [](auto& w) { w.D()->SetDefaultValue(w.value, {}); }},
    {1, "c@a.RemoveMethodDecl(m@b)", [](auto& w) { w.C()->RemoveMethodDecl(w.M()); }},
    {1, "m@b = c@a.GetMethodDecl(@M)",
     [](auto& w) { w.out << w.Text(w.m[w.s.b] = w.C()->GetMethodDecl(w.In(kMethods), {})); }},
    {2, "p@a = m@b.AllocateParameterDecl(@P), added",
     [](auto& w) {
       w.p[w.s.a] = w.M()->AllocateParameterDecl(w.In(kProperties), TType::kStringArray, {});
       w.p[w.s.a]->AddToMethod({});
     }},
    {1, "p@a = m@b.GetParameterDecl(@P)",
     [](auto& w) { w.out << w.Text(w.p[w.s.a] = w.M()->GetParameterDecl(w.In(kProperties), {})); }},
    {1, "m@b.EnumerateParameterDecls(conduct @F)",
     [](auto& w) { w.List(true, [&](auto& take) { w.OnParameters(*w.M(), take); }); }},
    {1, "i@b.Validate()", [](auto& w) { w.I()->Validate({}); }},
    {1, "i@b.Delete()", [](auto& w) { w.I()->Delete({}); }},
    {6, "i@b.GetProperty(@P), shown; SetPrevValue(@V), or SetValue, by @F",
     [](auto& w) {
       const auto property = w.I()->GetProperty(w.In(kProperties), {});
       w.ShowProperty(property);
       if (w.s.flag % 4 == 0) property->SetPrevValue();
       if (w.s.flag % 4 == 1) property->SetPrevValue(w.value);
       if (w.s.flag % 4 == 2) property->SetValue(w.value, {});
     }},
    {2, "ns.GetInstance(@V)",
     [](auto& w) {
       w.out << w.Text(w.space->GetInstance(static_cast<TCIMReference>(w.value), {}));
     }},
    {2, "c@a.IsSubclassOf(c@b)", [](auto& w) { w.out << w.C()->IsSubclassOf(w.c(w.s.b), {}); }},
    {1, "ns.EnumerateRootClasses(conduct @F)",
     [](auto& w) { w.List(true, [&](auto& take) { w.space->EnumerateRootClasses(take, {}); }); }},
    {1, "ns.EnumerateQualifierDecls(conduct @F)",
     [](auto& w) {
       w.List(true, [&](auto& take) { w.space->EnumerateQualifierDecls(take, {}); });
     }},
    {2, "c@a.EnumerateSubClasses(conduct @F, deep if @b is odd)",
     [](auto& w) {
       w.List(true, [&](auto& take) { w.C()->EnumerateSubClasses(take, w.s.b % 2 == 1, {}); });
     }},
    {3, "c@a.EnumerateInstances(conduct @F, deep if @b is odd)",
     [](auto& w) {
       w.List(true, [&](auto& take) { w.C()->EnumerateInstances(take, w.s.b % 2 == 1, {}); });
     }},
    {1, "c@a.EnumeratePropertyDecls(conduct @F)",
     [](auto& w) { w.List(true, [&](auto& take) { w.C()->EnumeratePropertyDecls(take, {}); }); }},
    {1, "c@a.EnumerateMethodDecls(conduct @F)",
     [](auto& w) { w.List(true, [&](auto& take) { w.C()->EnumerateMethodDecls(take, {}); }); }},
    {2, "c@a.EnumerateKeyNames(conduct @F)",
     [](auto& w) { w.List(true, [&](auto& take) { w.C()->EnumerateKeyNames(take, {}); }); }},
    {4, "c@a.EnumerateAssociationClasses(@1, @2; conduct @F)",
     [](auto& w) {
       w.List(false, [&](auto& take) {
         w.C()->EnumerateAssociationClasses(take, w.Maybe(kClasses, w.s.name),
                                            w.Maybe(kProperties, w.s.value), {});
       });
     }},
    {5, "show c@a", [](auto& w) { w.ShowClass(); }},
    {5, "show i@b",
     [](auto& w) {
       w.out << w.Text(w.I()) << w.I()->GetReference({}).GetPath()
             << w.I()->GetReference({}).ToString();
       w.I()->EnumerateProperties(
           [&](const auto& one) {
             w.ShowProperty(one);
             return true;
           },
           {});
     }},
    {1, "ns.ClearInstances() if @f is 0",
     [](auto& w) {
       if (w.s.flag == 0) w.space->ClearInstances();
     }},
};

}  // namespace NZELVYR20
