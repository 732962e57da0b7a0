#include <boost/weak_ptr.hpp>
#include <stdexcept>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// One model in which everything that can be enumerated has elements whose names end in "_b", "_d"
/// and "_f"; names without a "_" are the model's own.
class TWalkTest : public TRedefinitionTest {
 protected:
  /// What becomes of a removed element: it goes, it cannot be removed, or the walk keeps it.
  enum EKind { kRemovable, kLasting, kFixed };
  struct TWalk {
    const char* name;
    EKind kind;
    std::function<void(const TNamer&)> run;
    bool passes = false;  ///< what the callback throws
    bool stops = false;   ///< when the callback answers false
  };

  void SetUp() override {
    space = NewNamespace(true);
    port = DefineClass("Port");
    schema = DefineClass("Schema");
    link = DefineAssociation("Link", {{"From", port}, {"To", port}});
    hub = PutInstance(port, "hub");
    property = DeclareProperty(port, "Speed", TCIMValue(1U));
    method = schema->AllocateMethodDecl("Reset", TType::kUInt32, {});
    parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    for (const char* name : {"_b", "_d", "_f"}) Add(name);
    machine = NewInstance(schema);
  }

  TInstance NewPort(const std::string& id) { return NewInstance(port, {{"Id", id}}); }

  TInstance NewLink(const std::string& id) {
    return NewInstance(link, {{"From", RefTo(hub)}, {"To", RefTo(NewPort(id))}});
  }

  void Add(const std::string& name) {
    PutBack(name);
    method->AllocateParameterDecl(name, TType::kNone, {})->AddToMethod({});
    NewQualifierDecl(name)->AddToNamespace({});
    const std::vector<ICIMNamedElement*> elements{schema.get(), property.get(), method.get(),
                                                  parameter.get()};
    for (ICIMNamedElement* element : elements) Qualify(*element, name);
  }

  /// What Remove takes away.
  void PutBack(const std::string& name) {
    NewPort(name)->AddToNamespace({});
    NewLink(name)->AddToNamespace({});
    DefineAssociation("Has" + name, {{"Far", DefineClass("Far" + name)}, {"Near", port}});
    PutInstance(DefineClass("Sub" + name, schema), TValues{{"Id", name}});
    DeclareProperty(schema, "Key" + name, TCIMValue(1U), {"Key"});
    schema->AllocateMethodDecl(name, TType::kNone, {})->AddToClass({});
  }

  void Remove(const std::string& name) {
    NewLink(name)->Delete({});
    NewPort(name)->Delete({});
    for (const char* prefix : {"Has", "Far", "Sub"}) {
      space->GetClass(prefix + name, {})->RemoveFromNamespace({});
    }
    schema->RemovePropertyDecl(schema->GetPropertyDecl("Key" + name, {}));
    schema->RemoveMethodDecl(schema->GetMethodDecl(name, {}));
  }

  std::vector<TWalk> GetWalks() {
    using N = const TNamer&;
    const auto parameters = [&](N note) {
      TCIMParameterDeclCallback callback = note;
      method->EnumerateParameterDecls(callback, {});
    };
    return {
        {"instances", kRemovable, [&](N note) { port->EnumerateInstances(note, false, {}); }},
        {"deep instances", kRemovable, [&](N note) { schema->EnumerateInstances(note, true, {}); }},
        {"references", kRemovable,
         [&](N note) { hub->EnumerateAssociationInstances(note, "", "From", {}); }},
        {"references by any role", kRemovable,
         [&](N note) { hub->EnumerateAssociationInstances(note, "Link", "", {}); }},
        {"associators by result role", kRemovable,
         [&](N note) { hub->EnumerateAssociatedInstances(note, "", "Port", "", "To", {}); }},
        {"associators", kRemovable,
         [&](N note) { hub->EnumerateAssociatedInstances(note, "", "Port", "", "", {}); }},
        {"properties of an instance", kFixed,
         [&](N note) { machine->EnumerateProperties(note, {}); }, true},
        {"subclasses", kRemovable, [&](N note) { schema->EnumerateSubClasses(note, true, {}); },
         false, true},
        {"association classes", kRemovable,
         [&](N note) { port->EnumerateAssociationClasses(note, "", "", {}); }, true, true},
        {"associated classes", kRemovable,
         [&](N note) { port->EnumerateAssociatedClasses(note, "", "", "", "", {}); }, true, true},
        {"properties", kRemovable, [&](N note) { schema->EnumeratePropertyDecls(note, {}); }, false,
         true},
        {"keys", kRemovable, [&](N note) { schema->EnumerateKeyNames(note, {}); }, true, true},
        {"methods", kRemovable, [&](N note) { schema->EnumerateMethodDecls(note, {}); }, false,
         true},
        {"parameters", kLasting, parameters, true},
        {"declared", kLasting, [&](N note) { space->EnumerateQualifierDecls(note, {}); }},
        {"of a class", kLasting, [&](N note) { schema->EnumerateQualifiers(note, {}); }, false,
         true},
        {"of a method", kLasting, [&](N note) { method->EnumerateQualifiers(note, {}); }, true},
        {"of a property", kLasting, [&](N note) { property->EnumerateQualifiers(note, {}); }},
        {"of a parameter", kLasting, [&](N note) { parameter->EnumerateQualifiers(note, {}); },
         true},
    };
  }

  /// The ends of the names in the order of the walk, and a call for each on the way.
  static TNames Run(const TWalk& walk, const std::function<void(const TNames&)>& during = {},
                    bool answer = true) {
    TNames names;
    walk.run(TNamer{[&](const std::string& name) {
      const auto end = name.find('_');
      if (end == std::string::npos) return true;
      names.push_back(name.substr(end, 2));
      if (during) during(names);
      return answer;
    }});
    return names;
  }

  TClass port, schema, link;
  TInstance hub, machine;
  TPropertyDecl property;
  boost::shared_ptr<ICIMMethodDecl> method;
  boost::shared_ptr<ICIMParameterDecl> parameter;
};

TEST_F(TWalkTest, VisitsOnceWhatIsThereThroughout) {
  for (const TWalk& walk : GetWalks()) {
    SCOPED_TRACE(walk.name);
    SetUp();
    TNames names = Run(walk);
    ASSERT_EQ(names.size(), 3U);
    TNames nested;
    const auto change = [&](const TNames& visited) {
      if (visited.size() > 1) return;
      for (const char* added : {"_a", "_c", "_g"}) Add(added);
      Remove(names[0]);
      Remove(names[1]);
      nested = Run(walk);
    };
    const TNames visited = Run(walk, change);
    EXPECT_EQ(nested.size(), walk.kind == kRemovable ? 4U : walk.kind == kLasting ? 6U : 3U);
    if (walk.kind == kRemovable) names.erase(names.begin() + 1);
    EXPECT_EQ(visited, names);
  }
}

TEST_F(TWalkTest, AnswersOfFalseAreHeededByThoseThatStop) {
  for (const TWalk& walk : GetWalks()) {
    SCOPED_TRACE(walk.name);
    SetUp();
    EXPECT_EQ(Run(walk, {}, false).size(), walk.stops ? 1U : 3U);
  }
}

TEST_F(TWalkTest, NothingIsVisitedTwiceWhenAllGoesAndComesBack) {
  for (const TWalk& walk : GetWalks()) {
    if (walk.kind == kLasting) continue;
    SCOPED_TRACE(walk.name);
    SetUp();
    const TNames names = Run(walk);
    const auto change = [&](const TNames& visited) {
      if (visited.size() > 1) return;
      for (const std::string& name : names) Remove(name);
      for (const std::string& name : names) PutBack(name);
    };
    EXPECT_EQ(Run(walk, change), walk.kind == kFixed ? names : TNames{names[0]});
    TNames after = Run(walk);
    std::sort(after.begin(), after.end());
    EXPECT_EQ(after, (TNames{"_b", "_d", "_f"}));
  }
}

TEST_F(TWalkTest, MayDropTheLastReferenceToTheNamespace) {
  for (const TWalk& walk : GetWalks()) {
    SCOPED_TRACE(walk.name);
    SetUp();
    const TNames names = Run(walk);
    const boost::weak_ptr<void> watched[] = {space,  port,      schema, link,   property,
                                             method, parameter, hub,    machine};
    const auto drop = [&](const TNames&) {
      machine.reset(), hub.reset(), parameter.reset(), method.reset(), property.reset();
      link.reset(), port.reset(), schema.reset(), space.reset();
    };
    const TNames visited = Run(walk, drop);
    EXPECT_TRUE(visited == names || visited == TNames{names[0]});
    for (const auto& element : watched) EXPECT_TRUE(element.expired());
  }
}

TEST_F(TWalkTest, SurvivesWhateverTheCallbackThrows) {
  const std::vector<std::pair<const char*, std::function<void()>>> throws{
      {"status 7", [] { throw TVYRException(7); }},
      {"status 15", [] { throw TVYRException(15); }},
      {"another exception", [] { throw std::runtime_error("callback"); }},
      {"a number", [] { throw 7; }},
  };
  for (const TWalk& walk : GetWalks()) {
    SCOPED_TRACE(walk.name);
    SetUp();
    const TNames names = Run(walk);
    for (const auto& [what, fail] : throws) {
      SCOPED_TRACE(what);
      TNames visited;
      const auto note = [&, thrown = fail](const TNames& sofar) {
        visited = sofar;
        thrown();
      };
      bool passed = true;
      try {
        Run(walk, note);
        passed = false;
      } catch (const TVYRException& failure) {
        EXPECT_EQ(what, "status " + std::to_string(failure.GetStatusCode()));
      } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "callback");
      } catch (int number) {
        EXPECT_EQ(number, 7);
      }
      EXPECT_EQ(passed, walk.passes);
      EXPECT_EQ(visited, walk.passes ? TNames{names[0]} : names);
      EXPECT_EQ(Run(walk), names);
    }
  }
}

TEST_F(TWalkTest, HandsOutTheReplacementButNeitherTheReturnedNorTheCleared) {
  NewPort("_h")->AddToNamespace({});
  NewPort("_i")->AddToNamespace({});
  TInstance replacement;
  std::vector<TInstance> visited;
  const auto change = [&](const TInstance& instance) {
    visited.push_back(instance);
    if (visited.size() == 1) {
      replacement = PutInstance(port, "_d");
      NewPort("_f")->Delete({});
      PutInstance(port, "_f");
    }
    if (visited.size() == 3) space->ClearInstances();
    return true;
  };
  port->EnumerateInstances(change, false, {});
  ASSERT_EQ(visited.size(), 3U);
  EXPECT_EQ(visited[1], replacement);
  EXPECT_EQ(visited[2]->GetProperty("Id", {})->ToString(), "_h");
}

}  // namespace
}  // namespace NZELVYR20
