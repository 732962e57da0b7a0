#include <boost/weak_ptr.hpp>
#include <functional>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TInmemMethodDecl.h"
#include "TInmemParameterDecl.h"
#include "TInmemPropertyDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TVisit = std::function<void(const std::string& name)>;

/// One model in which everything that can be enumerated has elements "b", "d" and "f" (some with a
/// prefix); other names than those of one letter are the model's own.
class TWalkTest : public TRedefinitionTest {
 protected:
  struct TWalk {
    const char* name;
    bool isRemovable;
    std::function<void(const TVisit&)> run;
  };

  void SetUp() override {
    space = NewNamespace(true);
    port = DefineClass("Port");
    schema = DefineClass("Schema");
    link = DefineAssociation("Link", {{"From", port}, {"To", port}});
    DeclareProperty(link, "Id", "");
    hub = PutInstance(port, "hub");
    property = DeclareProperty(port, "Speed", TCIMValue(1U));
    method = schema->AllocateMethodDecl("Reset", TType::kUInt32, {});
    method->AddToClass({});
    parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    parameter->AddToMethod({});
    for (const char* name : {"b", "d", "f"}) Add(name);
  }

  TInstance NewPort(const std::string& id) { return NewInstance(port, {{"Id", id}}); }

  TInstance NewLink(const std::string& id) {
    return NewInstance(link, {{"Id", id}, {"From", RefTo(hub)}, {"To", RefTo(NewPort(id))}});
  }

  /// Adds to the collections in which a second element of a name takes the place of the first.
  void Put(const std::string& name) {
    NewPort(name)->AddToNamespace({});
    NewLink(name)->AddToNamespace({});
    DeclareProperty(schema, "PortType" + name, TCIMValue(1U), {"Key"});
    NewQualifierDecl(name)->AddToNamespace({});
    Qualify(*schema, name), Qualify(*property, name);
    Qualify(*method, name), Qualify(*parameter, name);
  }

  void Add(const std::string& name) {
    Put(name);
    DefineAssociation("Has" + name, {{"Far", DefineClass(name)}, {"Near", port}});
    PutInstance(DefineClass("Sub" + name, schema), TValues{{"Id", name}});
    schema->AllocateMethodDecl(name, TType::kNone, {})->AddToClass({});
    method->AllocateParameterDecl(name, TType::kNone, {})->AddToMethod({});
  }

  void Remove(const std::string& name) {
    NewLink(name)->Delete({});
    NewPort(name)->Delete({});
    for (const auto& cimClass : {"Has" + name, name, "Sub" + name}) {
      space->GetClass(cimClass, {})->RemoveFromNamespace({});
    }
    schema->RemovePropertyDecl(schema->GetPropertyDecl("PortType" + name, {}));
    schema->RemoveMethodDecl(schema->GetMethodDecl(name, {}));
    boost::dynamic_pointer_cast<TInmemMethodDecl>(method)->RemoveParameterDecl(
        boost::dynamic_pointer_cast<TInmemParameterDecl>(method->GetParameterDecl(name, {})));
    boost::dynamic_pointer_cast<TInmemPropertyDecl>(property)->RemoveQualifier(
        property->GetQualifier(name, {}));
    boost::dynamic_pointer_cast<TInmemParameterDecl>(parameter)->RemoveQualifier(
        parameter->GetQualifier(name, {}));
  }

  /// A callback that visits what follows the prefix of an element's name.
  static auto Names(const TVisit& visit, const std::string& prefix = "") {
    return [&visit, prefix](const auto& element) {
      const std::string name = element->GetName({});
      if (name.compare(0, prefix.size(), prefix) == 0) visit(name.substr(prefix.size()));
      return true;
    };
  }

  static auto Ids(const TVisit& visit) {
    return [&visit](const TInstance& instance) {
      visit(instance->GetProperty("Id", {})->ToString());
      return true;
    };
  }

  std::vector<TWalk> GetWalks() {
    using V = const TVisit&;
    return {
        {"instances", true, [&](V v) { port->EnumerateInstances(Ids(v), false, {}); }},
        {"deep instances", true, [&](V v) { schema->EnumerateInstances(Ids(v), true, {}); }},
        {"references", true,
         [&](V v) { hub->EnumerateAssociationInstances(Ids(v), "", "From", {}); }},
        {"associators", true,
         [&](V v) { hub->EnumerateAssociatedInstances(Ids(v), "", "Port", "", "", {}); }},
        {"subclasses", true, [&](V v) { schema->EnumerateSubClasses(Names(v, "Sub"), true, {}); }},
        {"root classes", true, [&](V v) { space->EnumerateRootClasses(Names(v), {}); }},
        {"association classes", true,
         [&](V v) { port->EnumerateAssociationClasses(Names(v, "Has"), "", "", {}); }},
        {"associated classes", true,
         [&](V v) { port->EnumerateAssociatedClasses(Names(v), "", "", "", "", {}); }},
        {"properties", true,
         [&](V v) { schema->EnumeratePropertyDecls(Names(v, "PortType"), {}); }},
        {"keys", true,
         [&](V v) {
           const auto visit = [&](const std::string* name) {
             if (name->size() > 8) v(name->substr(8));
             return true;
           };
           schema->EnumerateKeyNames(visit, {});
         }},
        {"methods", true, [&](V v) { schema->EnumerateMethodDecls(Names(v), {}); }},
        {"parameters", true,
         [&](V v) {
           TCIMParameterDeclCallback visit = Names(v);
           method->EnumerateParameterDecls(visit, {});
         }},
        {"qualifier declarations", false,
         [&](V v) { space->EnumerateQualifierDecls(Names(v), {}); }},
        {"class qualifiers", false, [&](V v) { schema->EnumerateQualifiers(Names(v), {}); }},
        {"method qualifiers", false, [&](V v) { method->EnumerateQualifiers(Names(v), {}); }},
        {"property qualifiers", true, [&](V v) { property->EnumerateQualifiers(Names(v), {}); }},
        {"parameter qualifiers", true, [&](V v) { parameter->EnumerateQualifiers(Names(v), {}); }},
    };
  }

  /// The names of one letter in the order of the walk, and a call for each on the way.
  static TNames Run(const TWalk& walk, const TVisit& during = {}) {
    TNames names;
    walk.run([&](const std::string& name) {
      if (name.size() != 1) return;
      names.push_back(name);
      if (during) during(name);
    });
    return names;
  }

  TClass port, schema, link;
  TInstance hub;
  TPropertyDecl property;
  boost::shared_ptr<ICIMMethodDecl> method;
  boost::shared_ptr<ICIMParameterDecl> parameter;
};

TEST_F(TWalkTest, VisitsOnceWhatIsThereThroughout) {
  for (const TWalk& walk : GetWalks()) {
    SCOPED_TRACE(walk.name);
    SetUp();
    TNames names = Run(walk);
    TNames nested;
    ASSERT_EQ(names.size(), 3U);
    const auto change = [&](const std::string& name) {
      if (name != names[0]) return;
      for (const char* added : {"a", "c", "g"}) Add(added);
      Put(names[0]), Put(names[2]);
      Remove(names[0]), Remove(names[1]);
      nested = Run(walk);
    };
    const TNames visited = Run(walk, change);
    EXPECT_EQ(Run(walk), nested);
    EXPECT_EQ(nested.size(), walk.isRemovable ? 4U : 6U);
    if (walk.isRemovable) names.erase(names.begin() + 1);
    EXPECT_EQ(visited, names);
  }
}

TEST_F(TWalkTest, MayDropTheLastReferenceToTheNamespace) {
  for (const TWalk& walk : GetWalks()) {
    SCOPED_TRACE(walk.name);
    SetUp();
    const TNames names = Run(walk);
    const boost::weak_ptr<void> watched[] = {space,    port,   schema,    link,
                                             property, method, parameter, hub};
    const auto drop = [&](const std::string&) {
      hub.reset(), parameter.reset(), method.reset(), property.reset();
      link.reset(), port.reset(), schema.reset(), space.reset();
    };
    const TNames visited = Run(walk, drop);
    EXPECT_TRUE(visited == names || visited == TNames{names[0]});
    for (const auto& element : watched) EXPECT_TRUE(element.expired());
  }
}

TEST_F(TWalkTest, HandsOutTheReplacementAndNothingThatWasCleared) {
  TInstance replacement;
  std::vector<TInstance> visited;
  const auto change = [&](const TInstance& instance) {
    visited.push_back(instance);
    if (visited.size() == 1) replacement = PutInstance(port, "d");
    if (visited.size() == 2) space->ClearInstances();
    return true;
  };
  port->EnumerateInstances(change, false, {});
  ASSERT_EQ(visited.size(), 2U);
  EXPECT_EQ(visited[1], replacement);
}

TEST_F(TWalkTest, AnInstanceMayGoWhileItsPropertiesAreVisited) {
  hub = PutInstance(port, "x");
  std::string texts;
  const auto change = [&](const boost::shared_ptr<ICIMProperty>& visited) {
    texts += visited->ToString();
    if (port) port->RemovePropertyDecl(property);
    hub.reset(), link.reset(), port.reset(), space.reset();
    return true;
  };
  hub->EnumerateProperties(change, {});
  EXPECT_EQ(texts, "x1");
}

}  // namespace
}  // namespace NZELVYR20
