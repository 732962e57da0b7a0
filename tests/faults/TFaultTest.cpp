#include <boost/make_shared.hpp>
#include <iostream>
#include <new>
#include <stdexcept>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TFaults.h"
#include "TNamespaceDump.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using EKind = TFaults::EKind;

/// An operation, and what it answers.
using TOperation = std::function<std::string()>;

template <class TVoid>
TOperation Do(TVoid operation) {
  return [operation] {
    operation();
    return std::string();
  };
}

struct TCase {
  const char* name;
  std::function<TOperation()> prepare;
  bool swallows = false;  ///< a failure may count as a miss and stay unknown to the caller
};

struct TFaultyLogger : ICoreLogger {
  void Log(int, const std::string&) override {
    if (TFaults::Strikes(EKind::kLog)) throw std::runtime_error("log");
  }
};

const std::string kBase = "CIM_ManagedSystemElement";
const std::string kSub = "CIM_EthernetPortOfTheMachine";
const std::string kSpeed = "OperationalSpeedOfThePort";
const std::string kReset = "ResetToFactoryDefaults";
const std::string kText = "a text that is too long to stand in its object";

/// A model of which every kind of change can be made, whose names and values are long enough to
/// need memory of their own.
class TFaultTest : public TRedefinitionTest {
 protected:
  void SetUp() override {
    TRootObject::SetCoreLogger(boost::make_shared<TFaultyLogger>());
    space = NewNamespace(true);
    strict = NewNamespace(false);
    spare = NewClass(kBase);
    DeclareProperty(spare, "KeyOfTheReplacement", kText, {"Key"});
    base = DefineClass(kBase);
    NewQualifierDecl("MarkOfTheHierarchy", kText)->AddToNamespace({});
    mark = NewQualifier(*base, "MarkOfTheHierarchy", kText);
    mark->AddToClassOrProperty({});
    speed = DeclareProperty(base, kSpeed, TCIMValue(1ULL));
    Qualify(*speed, "Units", "Bytes per Second");
    state = DeclareProperty(base, "StateOfTheElement", TCIMValue(static_cast<unsigned short>(4)));
    Qualify(*state, "Values", Texts({"Neither of the two", "All that are known", "The others"}));
    Qualify(*state, "ValueMap", Texts({"1", "2..5", ".."}));
    reset = base->AllocateMethodDecl(kReset, TType::kUInt32, {});
    reset->AllocateParameterDecl("ForceTheReset", TType::kBoolean, {})->AddToMethod({});
    reset->AddToClass({});
    sub = DefineClass(kSub, base);
    link = DefineAssociation("CIM_Link", {{"Antecedent", base}, {"Dependent", base}});
    a = PutInstance(base, "the first instance of the class");
    b = PutInstance(sub, "the second instance, of the subclass");
    edge = PutInstance(link, {{"Antecedent", RefTo(a)}, {"Dependent", RefTo(b)}});
  }

  void Drop() {
    for (TInstance* instance : {&a, &b, &edge}) instance->reset();
    for (TClass* cimClass : {&spare, &base, &sub, &link}) cimClass->reset();
    mark.reset(), speed.reset(), state.reset(), reset.reset(), strict.reset(), space.reset();
  }

  static TCIMValue Texts(const std::vector<TCIMValue>& texts) {
    return TCIMValue::Array(TType::kString, texts);
  }

  /// What a host can see of the namespaces: also who is registered with whom, and the classes that
  /// only their names lead to.
  struct TState {
    TNamespaceDump dump, strictDump;
    TNames links;
    std::vector<bool> found;

    std::string Compare(const TState& other) const {
      return dump.Compare(other.dump) + strictDump.Compare(other.strictDump) +
             (links == other.links ? "" : "other registrations") +
             (found == other.found ? "" : "other classes under the names");
    }
  };

  TState GetState() {
    TState seen{TNamespaceDump(space), TNamespaceDump(strict), {}, {}};
    for (const char* name : {"CIM_SubclassOfTheBase", "CIM_LinkOfTheLinks", "CIM_NoAssociation"}) {
      seen.found.push_back(Try([&] { space->GetClass(name, {}); }).status == 0);
    }
    for (const std::string& name : {kBase, kSub}) {
      const auto cimClass = space->GetClass(name, {});
      for (const auto& association : NamesOf([&](const TNamer& note) {
             cimClass->EnumerateAssociationClasses(note, "", "", {});
           })) {
        seen.links.push_back(name);
        seen.links.back().append(" ").append(association);
      }
    }
    std::sort(seen.links.begin(), seen.links.end());
    return seen;
  }

  /// What an enumeration names; noting it is the host's part and does not fail.
  template <class TEnumeration>
  static TOperation Walk(TEnumeration enumerate) {
    return [enumerate] {
      std::string names;
      enumerate([&names](const auto& element) {
        const TFaults::TPause pause;
        return TNamer{[&](const std::string& name) {
          names += name + ' ';
          return true;
        }}(element);
      });
      return names;
    };
  }

  TOperation AddProperty(const TClass& cimClass, const std::string& name, const TCIMValue& value,
                         std::initializer_list<const char*> flags = {}) {
    return Do([added = NewPropertyDecl(cimClass, name, value, flags)] { added->AddToClass({}); });
  }

  TOperation AddMethod(const TClass& cimClass, const std::string& name, TType type,
                       bool overrides) {
    const auto added = cimClass->AllocateMethodDecl(name, type, {});
    if (overrides) Qualify(*added, "Override");
    return Do([added] { added->AddToClass({}); });
  }

  static TOperation AddInstance(const TClass& cimClass, const TValues& values) {
    return Do([added = NewInstance(cimClass, values)] { added->AddToNamespace({}); });
  }

  static TOperation AddClass(const TClass& cimClass) {
    return Do([cimClass] { cimClass->AddToNamespace({}); });
  }

  TClass NewKeyed(const boost::shared_ptr<ICIMNamespace>& owner, const std::string& name) {
    auto cimClass = owner->AllocateClass(name, {}, {});
    DeclareProperty(cimClass, "Id", kText, {"Key"});
    return cimClass;
  }

  std::vector<TCase> GetChanges();
  std::vector<TCase> GetRefusals();
  std::vector<TCase> GetReadings();

  /// Runs the operation with the n-th event of the kind failing; `struck` tells whether it came to
  /// that.
  static std::string Run(const TOperation& operation, EKind kind, int n, bool& struck) {
    TFaults::Arm(kind, n);
    try {
      std::string answer = operation();
      struck = TFaults::Disarm();
      return answer;
    } catch (const TVYRException& failure) {
      struck = TFaults::Disarm();
      return "status " + std::to_string(failure.GetStatusCode());
    } catch (const std::bad_alloc&) {
      struck = TFaults::Disarm();
      return kind == EKind::kAllocation ? kFault : "bad_alloc";
    } catch (const std::runtime_error&) {
      struck = TFaults::Disarm();
      return kind == EKind::kLog ? kFault : "runtime_error";
    }
  }

  /// Lets every event of the kind fail in turn, each in a model of its own; returns how many there
  /// were. After a failure all is as before, and the repetition ends as if nothing had failed.
  int Exhaust(const TCase& tried, EKind kind) {
    const auto& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
    const int failures = result.total_part_count();
    for (int n = 0;; ++n) {
      const long live = TFaults::CountLiveAllocations();
      const bool isLast = RunCase(tried, kind, n);
      Drop();
      // What is made once for the process is made by the first tries.
      EXPECT_TRUE(n < 2 || TFaults::CountLiveAllocations() == live) << "leaks, n = " << n;
      if (isLast || result.total_part_count() > failures) return n - 1;
    }
  }

  /// The 0th try is the one without failure to which the others are compared.
  bool RunCase(const TCase& tried, EKind kind, int n) {
    SetUp();
    const TOperation operation = tried.prepare();
    const TState before = GetState();
    bool struck = false;
    std::string answer = Run(operation, n == 0 ? EKind::kNone : kind, n == 0 ? 1 : n, struck);
    if (n > 0 && answer == kFault) {
      EXPECT_EQ(before.Compare(GetState()), "") << "n = " << n;
      answer = Run(operation, EKind::kNone, 1, struck);
      struck = true;
    } else if (n > 0 && struck) {
      EXPECT_TRUE(tried.swallows) << "swallowed, n = " << n << ": " << answer;
      const auto now = GetState();
      EXPECT_TRUE(before.Compare(now).empty() || after->Compare(now).empty()) << "n = " << n;
      return false;
    }
    if (n == 0) after = std::make_unique<TState>(GetState()), expected = answer;
    EXPECT_EQ(answer, expected) << "n = " << n;
    EXPECT_EQ(after->Compare(GetState()), "") << "n = " << n;
    return n > 0 && !struck;
  }

  void ExhaustAll(const std::vector<TCase>& cases) {
    Drop();
    int allocations = 0;
    int lines = 0;
    for (const TCase& tried : cases) {
      SCOPED_TRACE(tried.name);
      allocations += Exhaust(tried, EKind::kAllocation);
      lines += Exhaust(tried, EKind::kLog);
    }
    RecordProperty("allocations", allocations);
    RecordProperty("log lines", lines);
    EXPECT_GT(allocations, static_cast<int>(cases.size()));
  }

  static inline const std::string kFault = "fault";
  boost::shared_ptr<ICIMNamespace> strict;
  TClass spare, base, sub, link;
  boost::shared_ptr<ICIMQualifier> mark;
  TPropertyDecl speed, state;
  boost::shared_ptr<ICIMMethodDecl> reset;
  TInstance a, b, edge;
  std::unique_ptr<TState> after;
  std::string expected;
};

std::vector<TCase> TFaultTest::GetChanges() {
  return {
      {"allocate a namespace", [] { return Do([] { NewNamespace(true); }); }},
      {"register the provider", [] { return Do([] { TInmemNamespaceProvider::Initialize(); }); }},
      {"allocate a class", [=] { return Do([=] { NewClass("CIM_SubclassOfTheBase", base); }); },
       true},
      {"refresh a class",
       [=] {
         AddProperty(base, "PropertyForTheSubclass", kText)();
         AddMethod(base, "MethodForTheSubclass", TType::kUInt32, false)();
         Qualify(*base, "QualifierForTheSubclass", kText);
         return Do([=] { NewClass(kSub); });
       },
       true},
      {"add a class", [=] { return AddClass(NewClass("CIM_SubclassOfTheBase", base)); }},
      {"add a class once", [=] { return AddClass(NewKeyed(strict, "CIM_ClassThatIsThere")); }},
      {"add an association",
       [=] {
         const auto added = NewClass("CIM_LinkOfTheLinks", link);
         DeclareProperty(added, "AntecedentOfTheSub", TCIMValue::NullReference(spare));
         DeclareProperty(added, "DependentOfTheSub", TCIMValue::NullReference(sub));
         return AddClass(added);
       }},
      {"redefine a class", [=] { return AddClass(spare); }},
      {"redefine an association",
       [=] {
         const auto replacement = NewClass("CIM_Other", link);
         DefineAssociation("CIM_Other", {{"Far", sub}});
         return AddClass(replacement);
       }},
      {"remove an association", [=] { return Do([=] { link->RemoveFromNamespace({}); }); }},
      {"remove a class", [=] { return Do([=] { sub->RemoveFromNamespace({}); }); }},
      {"add an association by what is no boolean",
       [=] {
         const auto added = NewKeyed(space, "CIM_NoAssociation");
         Qualify(*added, "Association", kText);
         return AddClass(added);
       }},
      {"declare a qualifier",
       [=] {
         return Do([=] { NewQualifierDecl("NewMarkOfTheTest", kText)->AddToNamespace({}); });
       }},
      {"declare a qualifier again",
       [=] { return Do([=] { NewQualifierDecl("MarkOfTheHierarchy", 1U)->AddToNamespace({}); }); }},
      {"attach a qualifier",
       [=] { return Do([=] { Qualify(*state, "NewMarkOfTheTest", kText); }); }},
      {"replace a qualifier",
       [=] { return Do([=] { Qualify(*base, "MarkOfTheHierarchy", kText + kText); }); }},
      {"set a qualifier", [=] { return Do([=] { mark->SetValue(kText + kText, {}); }); }},
      {"set a default", [=] { return Do([=] { speed->SetDefaultValue(kText, {}); }); }},
      {"declare a property", [=] { return AddProperty(sub, "NewPropertyOfTheTest", kText); }},
      {"override a property", [=] { return AddProperty(sub, kSpeed, 2ULL, {"Override"}); }},
      {"remove a property", [=] { return Do([=] { sub->RemovePropertyDecl(speed); }); }},
      {"declare a method",
       [=] { return AddMethod(sub, "NewMethodOfTheTest", TType::kUInt32, false); }},
      {"override a method", [=] { return AddMethod(sub, kReset, TType::kUInt32, true); }},
      {"remove a method", [=] { return Do([=] { sub->RemoveMethodDecl(reset); }); }},
      {"add a parameter",
       [=] {
         return Do([=] {
           reset->AllocateParameterDecl("NewParameterOfTheTest", TType::kBoolean, {})
               ->AddToMethod({});
         });
       }},
      {"set a value", [=] { return Do([=] { a->SetPropertyValue("Id", kText, {}); }); }},
      {"set a reference",
       [=] { return Do([=] { edge->SetPropertyValue("Dependent", RefTo(a), {}); }); }},
      {"set a previous value",
       [=] { return Do([=] { a->GetProperty("Id", {})->SetPrevValue(kText); }); }},
      {"set the previous value to null",
       [=] { return Do([=] { a->GetProperty("Id", {})->SetPrevValue(); }); }},
      {"allocate an instance",
       [=] {
         DeclareProperty(sub, "DateTimeOfCollection", TCIMValue::Null(TType::kDateTime));
         return Do([=] { sub->AllocateInstance({}); });
       }},
      {"add an instance",
       [=] {
         return AddInstance(sub, {{"Id", kText}});
       }},
      {"replace an instance",
       [=] {
         return AddInstance(base, {{"Id", a->GetProperty("Id", {})->GetValue({})}, {kSpeed, 7ULL}});
       }},
      {"add an association instance",
       [=] {
         return AddInstance(link, {{"Antecedent", RefTo(b)}, {"Dependent", RefTo(a)}});
       }},
      {"delete an instance", [=] { return Do([=] { edge->Delete({}); }); }},
      {"clear", [=] { return Do([=] { space->ClearInstances(); }); }},
      {"read an undeclared status",
       [=] { return [=] { return b->GetProperty("HealthStateOfTheElement", {})->ToString(); }; }},
      {"read an undeclared description",
       [=] {
         NewInstance(sub)->GetProperty("Description", {});
         return [=] { return b->GetProperty("DescriptionOfTheElement", {})->ToString(); };
       }},
      {"read an undeclared duplex",
       [=] { return [=] { return b->GetProperty("speedDuplexOfThePort", {})->ToString(); }; }},
  };
}

/// Everything that logs.
std::vector<TCase> TFaultTest::GetRefusals() {
  return {
      {"look up what is no name",
       [=] { return Do([=] { space->GetClass("no name of a class at all", {}); }); }},
      {"allocate what is no name",
       [=] { return Do([=] { NewClass("no name of a class at all", base); }); }, true},
      {"add what is no name",
       [=] { return AddClass(NewClass("no name of a class at all", base)); }},
      {"add a class without key", [=] { return AddClass(NewClass("CIM_ClassWithoutKey")); }},
      {"add a class whose key is no boolean",
       [=] {
         const auto added = NewClass("CIM_ClassWithOddKey");
         Qualify(*DeclareProperty(added, "Id", kText), "Key", kText);
         return AddClass(added);
       }},
      {"add a class twice",
       [=] {
         const auto again = NewKeyed(strict, "CIM_ClassDefinedTwice");
         NewKeyed(strict, "CIM_ClassDefinedTwice")->AddToNamespace({});
         return AddClass(again);
       }},
      {"declare a qualifier twice",
       [=] {
         const auto any = ICIMQualifierDecl::kAny;
         const auto twice = strict->AllocateQualifierDecl("MarkTwice", kText, any, {}, {});
         twice->AddToNamespace({});
         return Do([=] { twice->AddToNamespace({}); });
       }},
      {"attach another value",
       [=] {
         Qualify(*base, "MarkThatIsFixed", kText, ICIMQualifierDecl::kNoFlavor);
         return Do([=] { Qualify(*base, "MarkThatIsFixed", 1U); });
       }},
      {"refer from no association",
       [=] { return AddProperty(sub, "ReferenceToTheBase", TCIMValue::NullReference(base)); }},
      {"override what is not there",
       [=] { return AddProperty(sub, "PropertyThatIsMissing", kText, {"Override"}); }},
      {"override by another type", [=] { return AddProperty(sub, kSpeed, kText, {"Override"}); }},
      {"override a missing method",
       [=] { return AddMethod(sub, "MethodThatIsMissing", TType::kUInt32, true); }},
      {"override a method by another type",
       [=] { return AddMethod(sub, kReset, TType::kString, true); }},
      {"override a method of the class",
       [=] { return AddMethod(base, kReset, TType::kUInt32, true); }},
      {"declare a method twice", [=] { return AddMethod(base, kReset, TType::kUInt32, false); }},
      {"add a parameter twice",
       [=] {
         const auto again = reset->AllocateParameterDecl("ForceTheReset", TType::kString, {});
         return Do([=] { again->AddToMethod({}); });
       }},
      {"add an instance without key", [=] { return AddInstance(base, {}); }},
      {"add a dangling association",
       [=] {
         const auto nobody = RefTo(NewInstance(base, {{"Id", kText}}));
         return AddInstance(link, {{"Antecedent", nobody}, {"Dependent", RefTo(a)}});
       }},
      {"set another type", [=] { return Do([=] { a->SetPropertyValue(kSpeed, kText, {}); }); }},
      {"set another class",
       [=] { return Do([=] { edge->SetPropertyValue("Dependent", RefTo(edge), {}); }); }},
      {"set another previous type",
       [=] { return Do([=] { a->GetProperty(kSpeed, {})->SetPrevValue(kText); }); }},
  };
}

std::vector<TCase> TFaultTest::GetReadings() {
  const auto show = [=](const std::string& name, const TCIMValue& value) -> TOperation {
    a->SetPropertyValue(name, value, {});
    return [property = a->GetProperty(name, {})] { return property->ToString(); };
  };
  const auto root = [=] { return space->GetClass("", {}); };
  return {
      {"show a speed", [=] { return show(kSpeed, 123456789ULL); }},
      {"show a long number",
       [=] {
         Qualify(*speed, "DisplayFixedUnits", "Tera");
         Qualify(*speed, "Units", "TeraBytes");
         return show(kSpeed, 12345678901234567890ULL);
       }},
      {"show a state", [=] { return show("StateOfTheElement", static_cast<unsigned short>(3)); }},
      {"show a text", [=] { return show("Id", kText); }},
      {"show an array",
       [=] {
         const auto declared = DeclareProperty(
             sub, "States", TCIMValue::Array(TType::kUInt16, {static_cast<unsigned short>(9)}));
         Qualify(*declared, "Values", Texts({kText, kText}));
         return [property = NewInstance(sub)->GetProperty("States", {}), declared] {
           return std::move(property->ToStringVector().at(0));
         };
       }},
      {"path", [=] { return [=] { return PathOf(*edge); }; }},
      {"find an instance",
       [=] {
         return [=] { return space->GetInstance(a->GetReference({}), {}) == a ? "it" : "none"; };
       }},
      {"instances",
       [=] { return Walk([=](const auto& note) { root()->EnumerateInstances(note, true, {}); }); }},
      {"classes",
       [=] {
         return Walk([=](const auto& note) { root()->EnumerateSubClasses(note, true, {}); });
       }},
      {"top classes",
       [=] { return Walk([=](const auto& note) { space->EnumerateRootClasses(note, {}); }); }},
      {"keys", [=] { return Walk([=](const auto& note) { link->EnumerateKeyNames(note, {}); }); }},
      {"qualifiers",
       [=] { return Walk([=](const auto& note) { state->EnumerateQualifiers(note, {}); }); }},
      {"association classes",
       [=] {
         return Walk([=](const auto& note) {
           sub->EnumerateAssociationClasses(note, "CIM_Link", "Dependent", {});
         });
       }},
      {"associated classes",
       [=] {
         return Walk([=](const auto& note) {
           base->EnumerateAssociatedClasses(note, "CIM_Link", kBase, "Antecedent", "Dependent", {});
         });
       }},
      {"references",
       [=] {
         return Walk([=](const auto& note) { a->EnumerateAssociationInstances(note, "", "", {}); });
       },
       true},
      {"associators",
       [=] {
         return Walk([=](const auto& note) {
           a->EnumerateAssociatedInstances(note, "CIM_Link", kBase, "Antecedent", "", {});
         });
       },
       true},
  };
}

TEST_F(TFaultTest, AReadingFailsOrAnswers) { ExhaustAll(GetReadings()); }
TEST_F(TFaultTest, AChangeFailsAsAWholeOrNotAtAll) { ExhaustAll(GetChanges()); }
TEST_F(TFaultTest, ARefusalThatFailsChangesNothingElse) { ExhaustAll(GetRefusals()); }

}  // namespace
}  // namespace NZELVYR20
