#include "TTwoSides.h"

namespace NZELVYR20 {
namespace {

using TPool = std::vector<std::string>;
const TPool kClasses = {"CIM_Foo",
                        "CIM_Bar",
                        "cim_foo",
                        "CIM_Link",
                        "Baz",
                        "cim_link",
                        "CIM_Qux",
                        "ZELSG_PhysicalNetworkPort",
                        "zelsg_physicalnetworkportX",
                        "",
                        "<root>",
                        "<ROOT>",
                        "1bad",
                        "BAZ",
                        "ZELSG_PhysicalNetworkPort",
                        "CIM_Baz"};
const TPool kProperties = {"Name",
                           "NAME",
                           "Speed",
                           "speed",
                           "Antecedent",
                           "Dependent",
                           "dependent",
                           "PortType",
                           "linkporttype",
                           "LinkPortTypeInfo",
                           "porttype",
                           "speedDuplex",
                           "XspeedDuplex",
                           "SpeedDuplex",
                           "HealthState",
                           "healthstate",
                           "XHealthStateY",
                           "Description",
                           "MyDescriptionText",
                           "description",
                           "DateTimeOfCollection",
                           "PrimaryStatus",
                           "",
                           "9x",
                           "a-b",
                           "Third"};
std::string FoldName(std::string name) {
  for (char& c : name) c = static_cast<char>(tolower(c));
  return name;
}
const TPool kMethods = {"Reset", "RESET", "Stop", "PortTypeM", "a b"};
const TPool kQualifiers = {"KEY",    "OVERRIDE", "ASSOCIATION", "ABSTRACT",
                           "Values", "BASE",     "NULLDISPLAY", "Version",
                           "key",    "Override", "version",     "no name"};
const std::string& In(const TPool& pool, int at) { return pool[at % pool.size()]; }
/// For what restricts a query: mostly nothing.
std::string Maybe(const TPool& pool, int at) { return at % 3 == 0 ? In(pool, at / 3) : ""; }

std::vector<TCIMValue> MakeConstants() {
  const auto array = [](TType type, const std::vector<TCIMValue>& elements) {
    return TCIMValue::Array(type, elements);
  };
  const TCIMValue a("a");
  const TCIMValue b("b");
  return {true,
          a,
          b,
          static_cast<unsigned short>(0),
          static_cast<unsigned short>(2),
          TCIMValue::Null(TType::kString),
          TCIMValue::Null(TType::kUInt16),
          TCIMValue(),
          false,
          TCIMValue::Null(TType::kBoolean),
          static_cast<unsigned char>(16),
          1536U,
          -5,
          1ULL << 60U,
          "quote\"d",
          "",
          array(TType::kString, {a, b, "c"}),
          array(TType::kUInt16, {static_cast<unsigned short>(1), static_cast<unsigned short>(9)}),
          TCIMValue::Null(TType::kUInt16Array),
          array(TType::kBoolean, {true, false}),
          TCIMDateTime(),
          TCIMValue::Null(TType::kDateTime),
          "A",
          static_cast<unsigned char>(2)};
}

ICIMQualifierDecl::EFlavor Flavor(int flag) {
  return static_cast<ICIMQualifierDecl::EFlavor>(flag & 7);
}

/// Walks, and shows what came by. The callback goes on, stops, or throws, as the flag wants it.
/// `isOrdered` is false where identity decides the order: then what came is compared as a set, and
/// only counted where the walk may have been cut short.
template <class TSide, class TWalk>
void Show(TWorld<TSide>& world, int flag, bool isOrdered, const TWalk& walk) {
  std::vector<std::string> texts;
  const int conduct = flag % 8;
  const auto print = [&] {
    if (!isOrdered) std::sort(texts.begin(), texts.end());
    for (const auto& text : texts) world.out << (isOrdered || conduct < 4 ? text : "x") << ' ';
  };
  try {
    walk([&](const auto& element) {
      texts.push_back(world.Text(element));
      if (conduct == 5) throw TVYRException(15);
      if (conduct == 6) throw TVYRException(14);
      if (conduct == 7) throw conduct;
      return conduct < 4;
    });
  } catch (...) {
    print();
    throw;
  }
  print();
}

/// Runs the call on the element that the step names: a class, or a declaration of any kind.
template <class TSide, class TCallback>
void OnElement(TWorld<TSide>& w, const TStep& s, const TCallback& call) {
  if (s.b % 4 == 0) return call(w.c(s.a));
  if (s.b % 4 == 1) return call(w.d(s.a));
  if (s.b % 4 == 2) return call(w.m(s.a));
  call(w.p(s.a));
}

template <class TSide, class TElement>
void ShowQualifiers(TWorld<TSide>& w, const TElement& element) {
  element->EnumerateQualifiers(
      [&](const auto& one) {
        w.out << "\n    [" << w.Text(one) << " = " << w.Text(one->GetValue({})) << " flavor "
              << one->GetFlavor({}) << (one->GetPropagated({}) ? " propagated]" : "]");
        return true;
      },
      {});
}

template <class TSide, class TProperty>
void ShowProperty(TWorld<TSide>& w, const TProperty& one) {
  w.out << "\n  " << w.Text(one->GetDeclaration({})) << ' ' << one->GetType({}) << ' '
        << one->IsArray({}) << one->IsDefaultValue({}) << one->GetPropagated({}) << ' '
        << w.Text(one->GetValue({})) << " was " << one->IsPrevValueDifferent()
        << w.Text(one->GetPrevValue());
  if (one->GetType({}) == TType::kDateTime || one->GetType({}) != one->GetValue({}).GetType())
    return;
  w.out << " shown '" << one->ToString() << "' '" << one->PrevValueToString() << "'";
  for (const auto& text : one->ToStringVector()) w.out << " '" << text << "'";
}

template <class TSide>
void ShowClass(TWorld<TSide>& w, const TStep& s) {
  const auto& c = w.c(s.a);
  w.out << w.Text(c) << " under " << w.Text(c->GetSuperClass({}));
  ShowQualifiers(w, c);
  c->EnumeratePropertyDecls(
      [&](const auto& one) {
        w.out << "\n  " << w.Text(one) << " of " << w.Text(one->GetClass({})) << ' '
              << one->GetType({}) << one->IsArray({}) << ' ' << w.Text(one->GetDefaultValue({}));
        ShowQualifiers(w, one);
        return true;
      },
      {});
  c->EnumerateMethodDecls(
      [&](const auto& one) {
        w.out << "\n  " << w.Text(one) << " of " << w.Text(one->GetClass({})) << ' '
              << one->GetReturnType({});
        ShowQualifiers(w, one);
        typename TSide::TParameterCall onParameter = [&](const auto& parameter) {
          w.out << "\n   " << w.Text(parameter) << ' ' << parameter->GetType({})
                << parameter->IsArray({}) << w.Text(parameter->GetMethodDecl({}));
          ShowQualifiers(w, parameter);
          return true;
        };
        one->EnumerateParameterDecls(onParameter, {});
        return true;
      },
      {});
  w.out << "\n  root " << c->IsRootClass({}) << " abstract " << c->IsAbstract({}) << " association "
        << c->IsAssociation({});
}

template <class TFunction>
TOperation Op(const char* code, const char* pattern, int weight, TFunction function) {
  return {code, pattern, weight, function, function};
}

template <class TSide>
void AllocateClass(TWorld<TSide>& w, const TStep& s) {
  const std::string& name = In(kClasses, s.name);
  const auto super = s.flag % 3 == 0 ? typename TSide::TClass() : w.c(s.b);
  // A class below one of its own name could, by redefinition, become its own descendant.
  for (auto at = super; at; at = at->GetSuperClass({})) {
    if (!at->IsRootClass({}) && FoldName(at->GetName({})) == FoldName(name)) throw TNothingThere();
  }
  w.c[s.a] = w.space->AllocateClass(name, super, {});
  w.classes.push_back(w.c[s.a]);
  w.out << w.Text(w.c[s.a]);
}

}  // namespace

const std::vector<TOperation>& GetOperations() {
  static const std::vector<TOperation> operations = {
      Op("class", "c@a = ns.AllocateClass(@C, c@b or root)", 1,
         [](auto& w, const TStep& s) { AllocateClass(w, s); }),
      Op("addclass", "c@a.AddToNamespace()", 3,
         [](auto& w, const TStep& s) {
           if (!w.c(s.a)->IsRootClass({})) w.c(s.a)->AddToNamespace({});
         }),
      Op("", "c@a.RemoveFromNamespace()", 1,
         [](auto& w, const TStep& s) { w.c(s.a)->RemoveFromNamespace({}); }),
      Op("", "c@a = ns.GetClass(@C)", 2,
         [](auto& w, const TStep& s) {
           w.c[s.a] = w.space->GetClass(In(kClasses, s.name), {});
           w.out << w.Text(w.c[s.a]);
         }),
      Op("declare", "q@a = ns.AllocateQualifierDecl(@Q, @V, flavor @F)", 1,
         [](auto& w, const TStep& s) {
           w.q[s.a] = w.space->AllocateQualifierDecl(In(kQualifiers, s.name), w.value,
                                                     ICIMQualifierDecl::kAny, Flavor(s.flag), {});
         }),
      Op("adddeclared", "q@a.AddToNamespace()", 1,
         [](auto& w, const TStep& s) { w.q(s.a)->AddToNamespace({}); }),
      Op("", "q@a.SetFlavor or UnsetFlavor or SetDefaultValue(@V), flag @F", 1,
         [](auto& w, const TStep& s) {
           if (s.b % 3 == 0) w.q(s.a)->SetFlavor(Flavor(s.flag), {});
           if (s.b % 3 == 1) w.q(s.a)->UnsetFlavor(Flavor(s.flag), {});
           if (s.b % 3 == 2) w.q(s.a)->SetDefaultValue(w.value, {});
         }),
      Op("", "q@a = ns.GetQualifierDecl(@Q), show", 1,
         [](auto& w, const TStep& s) {
           const auto found = w.space->GetQualifierDecl(In(kQualifiers, s.name), {});
           w.out << w.Text(found);
           if (!found) return;
           w.out << w.Text(found->GetDefaultValue({})) << found->GetFlavor({});
           w.q[s.a] = found;
         }),
      Op("attach", "@E.AllocateQualifier(q@F, @V).AddToClassOrProperty()", 5,
         [](auto& w, const TStep& s) {
           OnElement(w, s, [&](const auto& element) {
             element->AllocateQualifier(w.q(s.flag), w.value, {})->AddToClassOrProperty({});
           });
         }),
      Op("", "@E.AllocateQualifier(q@n, @V, flavor @F).AddToClassOrProperty()", 4,
         [](auto& w, const TStep& s) {
           OnElement(w, s, [&](const auto& element) {
             element->AllocateQualifier(w.q(s.name), w.value, Flavor(s.flag), {})
                 ->AddToClassOrProperty({});
           });
         }),
      Op("", "@E.GetQualifier(@Q).SetFlavor or UnsetFlavor(@F) or SetValue(@V)", 3,
         [](auto& w, const TStep& s) {
           OnElement(w, s, [&](const auto& element) {
             const auto found = element->GetQualifier(In(kQualifiers, s.name), {});
             w.out << w.Text(found);
             if (!found) return;
             if (s.flag % 3 == 0) found->SetFlavor(Flavor(s.flag), {});
             if (s.flag % 3 == 1) found->UnsetFlavor(Flavor(s.flag), {});
             if (s.flag % 3 == 2) found->SetValue(w.value, {});
           });
         }),
      Op("", "@E.GetQualifier(@Q, found)", 2,
         [](auto& w, const TStep& s) {
           OnElement(w, s, [&](const auto& element) {
             bool found = false;
             w.out << w.Text(element->GetQualifier(In(kQualifiers, s.name), found, {})) << found;
           });
         }),
      Op("", "@E.EnumerateQualifiers(conduct @F)", 2,
         [](auto& w, const TStep& s) {
           OnElement(w, s, [&](const auto& element) {
             Show(w, s.flag, true,
                  [&](const auto& call) { element->EnumerateQualifiers(call, {}); });
           });
         }),
      Op("property", "d@b = c@a.AllocatePropertyDecl(@P, @V)", 4,
         [](auto& w, const TStep& s) {
           w.d[s.b] = w.c(s.a)->AllocatePropertyDecl(In(kProperties, s.name), w.value, {});
         }),
      Op("addproperty", "d@b.AddToClass()", 6,
         [](auto& w, const TStep& s) { w.d(s.b)->AddToClass({}); }),
      Op("", "c@a.AddPropertyDecl(d@b)", 1,
         [](auto& w, const TStep& s) { w.c(s.a)->AddPropertyDecl(w.d(s.b)); }),
      Op("", "c@a.RemovePropertyDecl(d@b)", 1,
         [](auto& w, const TStep& s) { w.c(s.a)->RemovePropertyDecl(w.d(s.b)); }),
      Op("", "d@b = c@a.GetPropertyDecl(@P)", 3,
         [](auto& w, const TStep& s) {
           w.d[s.b] = w.c(s.a)->GetPropertyDecl(In(kProperties, s.name), {});
           w.out << w.Text(w.d[s.b]);
         }),
      Op("", "d@b.SetDefaultValue(@V)", 1,
         [](auto& w, const TStep& s) { w.d(s.b)->SetDefaultValue(w.value, {}); }),
      Op("method", "m@b = c@a.AllocateMethodDecl(@M, type @F)", 2,
         [](auto& w, const TStep& s) {
           w.m[s.b] = w.c(s.a)->AllocateMethodDecl(
               In(kMethods, s.name), s.flag % 2 == 0 ? TType::kString : TType::kUInt8, {});
           w.methods.push_back(w.m[s.b]);
         }),
      Op("addmethod", "m@b.AddToClass()", 4,
         [](auto& w, const TStep& s) { w.m(s.b)->AddToClass({}); }),
      Op("", "c@a.RemoveMethodDecl(m@b)", 1,
         [](auto& w, const TStep& s) { w.c(s.a)->RemoveMethodDecl(w.m(s.b)); }),
      Op("", "m@b = c@a.GetMethodDecl(@M)", 1,
         [](auto& w, const TStep& s) {
           w.m[s.b] = w.c(s.a)->GetMethodDecl(In(kMethods, s.name), {});
           w.out << w.Text(w.m[s.b]);
         }),
      Op("", "p@b = m@a.AllocateParameterDecl(@P), added", 2,
         [](auto& w, const TStep& s) {
           w.p[s.b] =
               w.m(s.a)->AllocateParameterDecl(In(kProperties, s.name), TType::kStringArray, {});
           w.p[s.b]->AddToMethod({});
         }),
      Op("", "p@b = m@a.GetParameterDecl(@P)", 1,
         [](auto& w, const TStep& s) {
           w.p[s.b] = w.m(s.a)->GetParameterDecl(In(kProperties, s.name), {});
         }),
      Op("", "m@a.EnumerateParameterDecls(conduct @F)", 1,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, true, [&](const auto& call) {
             auto held = w.ParameterCall(call);
             w.m(s.a)->EnumerateParameterDecls(held, {});
           });
         }),
      Op("instance", "i@b = c@a.AllocateInstance()", 2,
         [](auto& w, const TStep& s) { w.i[s.b] = w.c(s.a)->AllocateInstance({}); }),
      Op("set", "i@b.SetPropertyValue(@P, @V)", 8,
         [](auto& w, const TStep& s) {
           w.i(s.b)->SetPropertyValue(In(kProperties, s.name), w.value, {});
         }),
      Op("addinstance", "i@b.AddToNamespace()", 3,
         [](auto& w, const TStep& s) { w.i(s.b)->AddToNamespace({}); }),
      Op("", "i@b.Validate()", 1, [](auto& w, const TStep& s) { w.i(s.b)->Validate({}); }),
      Op("", "i@b.Delete()", 1, [](auto& w, const TStep& s) { w.i(s.b)->Delete({}); }),
      Op("", "i@b.GetProperty(@P), show, SetPrevValue(@V)", 4,
         [](auto& w, const TStep& s) {
           const auto property = w.i(s.b)->GetProperty(In(kProperties, s.name), {});
           ShowProperty(w, property);
           if (s.flag % 4 == 0) property->SetPrevValue();
           if (s.flag % 4 == 1) property->SetPrevValue(w.value);
           if (s.flag % 4 == 2) property->SetValue(w.value, {});
         }),
      Op("", "ns.GetInstance(@V)", 2,
         [](auto& w, const TStep& s) {
           w.out << w.Text(w.space->GetInstance(static_cast<TCIMReference>(w.value), {})) << s.a;
         }),
      Op("", "c@a.IsSubclassOf(c@b), i@a == i@b, c@a.GetProperty(@P)", 2,
         [](auto& w, const TStep& s) {
           w.out << w.c(s.a)->IsSubclassOf(w.c(s.b), {});
           if (w.i[s.a] && w.i[s.b]) w.out << (*w.i[s.a] == *w.i[s.b]);
           w.c(s.a)->GetProperty(In(kProperties, s.name), {});
         }),
      Op("", "ns.EnumerateRootClasses and -QualifierDecls(conduct @F)", 1,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, true,
                [&](const auto& call) { w.space->EnumerateRootClasses(call, {}); });
           Show(w, s.flag, true,
                [&](const auto& call) { w.space->EnumerateQualifierDecls(call, {}); });
         }),
      Op("", "c@a.EnumerateSubClasses(conduct @F, deep if @b is odd)", 2,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, true,
                [&](const auto& call) { w.c(s.a)->EnumerateSubClasses(call, s.b % 2 == 1, {}); });
         }),
      Op("", "c@a.EnumerateInstances(conduct @F, deep if @b is odd)", 3,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, true,
                [&](const auto& call) { w.c(s.a)->EnumerateInstances(call, s.b % 2 == 1, {}); });
         }),
      Op("", "c@a.EnumerateKeyNames, -PropertyDecls and -MethodDecls(conduct @F)", 2,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, true,
                [&](const auto& call) { w.c(s.a)->EnumeratePropertyDecls(call, {}); });
           Show(w, s.flag, true,
                [&](const auto& call) { w.c(s.a)->EnumerateMethodDecls(call, {}); });
           Show(w, s.flag, true, [&](const auto& call) { w.c(s.a)->EnumerateKeyNames(call, {}); });
         }),
      Op("", "c@a.EnumerateAssociationClasses(@1, @2; conduct @F)", 3,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, false, [&](const auto& call) {
             w.c(s.a)->EnumerateAssociationClasses(call, Maybe(kClasses, s.name),
                                                   Maybe(kProperties, s.value), {});
           });
         }),
      Op("", "i@a.EnumerateAssociationInstances(@1, @2; conduct @F)", 4,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, false, [&](const auto& call) {
             w.i(s.a)->EnumerateAssociationInstances(call, Maybe(kClasses, s.name),
                                                     Maybe(kProperties, s.value), {});
           });
         }),
      Op("", "i@a.EnumerateAssociatedInstances(@1, @3, @2, @4; conduct @F)", 6,
         [](auto& w, const TStep& s) {
           Show(w, s.flag, false, [&](const auto& call) {
             w.i(s.a)->EnumerateAssociatedInstances(call, Maybe(kClasses, s.name),
                                                    In(kClasses, s.b), Maybe(kProperties, s.value),
                                                    Maybe(kProperties, s.flag), {});
           });
         }),
      Op("", "show c@a", 4, [](auto& w, const TStep& s) { ShowClass(w, s); }),
      Op("", "show i@a", 4,
         [](auto& w, const TStep& s) {
           w.out << w.Text(w.i(s.a));
           w.i(s.a)->EnumerateProperties(
               [&](const auto& one) {
                 ShowProperty(w, one);
                 return true;
               },
               {});
           w.out << w.i(s.a)->GetReference({}).GetPath() << w.i(s.a)->GetReference({}).ToString();
         }),
      Op("", "ns.ClearInstances() if @F is 0", 1,
         [](auto& w, const TStep& s) {
           if (s.flag % 16 == 0) w.space->ClearInstances();
         }),
  };
  return operations;
}

TCIMValue MakeValue(TWorld<TPluginSide>& plugin, TWorld<TModelSide>& model, const TStep& step) {
  static const std::vector<TCIMValue> constants = MakeConstants();
  const int at = step.value % 40;
  if (at < static_cast<int>(constants.size())) return constants[at];
  if (at < 30) return TCIMValue::NullReference(plugin.c(step.value / 40));
  const auto& instance = plugin.i(step.value / 40);
  const TCIMReference path = instance->GetReference({});
  // Escaping doubles with every level of a reference in a key.
  if (path.GetPath().size() > 200) throw TNothingThere();
  if (model.i(step.value / 40)->GetReference({}).GetPath() != path.GetPath()) plugin.out << "path!";
  return at < 36 ? TCIMValue(path) : TCIMValue(path, instance->GetClass({})->GetSuperClass({}));
}

std::string ToText(const TStep& s) {
  const auto value = [&]() -> std::string {
    const int at = s.value % 40;
    const std::string reg = std::to_string(s.value / 40 & 7);
    if (at >= 30) return "reference to i" + reg + (at < 36 ? "" : " as one to the superclass");
    if (at >= 24) return "null reference to c" + reg;
    return TWorld<TPluginSide>::Text(MakeConstants()[at]);
  };
  const std::map<char, std::string> fields = {
      {'a', std::to_string(s.a & 7)},
      {'b', std::to_string(s.b & 7)},
      {'n', std::to_string(s.name & 7)},
      {'F', std::to_string(s.flag & 7)},
      {'V', value()},
      {'C', '"' + In(kClasses, s.name) + '"'},
      {'P', '"' + In(kProperties, s.name) + '"'},
      {'M', '"' + In(kMethods, s.name) + '"'},
      {'Q', '"' + In(kQualifiers, s.name) + '"'},
      {'E', std::string(1, "cdmp"[s.b % 4]) + std::to_string(s.a & 7)},
      {'1', '"' + Maybe(kClasses, s.name) + '"'},
      {'2', '"' + Maybe(kProperties, s.value) + '"'},
      {'3', '"' + In(kClasses, s.b) + '"'},
      {'4', '"' + Maybe(kProperties, s.flag) + '"'}};
  std::string text;
  for (const char* at = GetOperations()[s.operation].pattern; *at != 0; ++at) {
    text += *at == '@' ? fields.at(*++at) : std::string(1, *at);
  }
  return text;
}

}  // namespace NZELVYR20
