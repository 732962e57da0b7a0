#include <boost/make_shared.hpp>
#include <iostream>
#include <new>
#include <stdexcept>
#include <thread>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TClassTree.h"
#include "TFaults.h"
#include "TNamespaceDump.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using EKind = TFaults::EKind;

/// An operation, and what it answers.
using TOperation = std::function<std::string()>;

template <class TCall>
TOperation Do(TCall call) {
  if constexpr (std::is_void_v<std::invoke_result_t<TCall>>) {
    return [call] { return call(), std::string(); };
  } else {
    return [call]() -> std::string { return call(); };
  }
}

/// What is tried is the call, or what a call before makes of it.
struct TCase {
  template <class TCall>
  TCase(const char* given, TCall call, bool isSwallowed = false)
      : name(given), swallows(isSwallowed) {
    if constexpr (std::is_same_v<std::invoke_result_t<TCall>, TOperation>) {
      prepare = call;
    } else {
      prepare = [call] { return Do(call); };
    }
  }

  const char* name;
  std::function<TOperation()> prepare;
  bool swallows;  ///< a failure may count as a miss and stay unknown to the caller
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
    mark.reset(), speed.reset(), state.reset(), reset.reset(), space.reset();
  }

  static TCIMValue Texts(const std::vector<TCIMValue>& texts) {
    return TCIMValue::Array(TType::kString, texts);
  }

  /// What a host can see: also who is registered with whom, and the classes that only their names
  /// lead to.
  TNamespaceDump GetState() {
    TNamespaceDump seen(space);
    TNames links;
    for (const char* name : {"CIM_SubclassOfTheBase", "CIM_LinkOfTheLinks", "CIM_NoAssociation"}) {
      if (Try([&] { space->GetClass(name, {}); }).status == 0) links.emplace_back(name);
    }
    for (const std::string& name : {kBase, kSub}) {
      const auto note = [&](const TClass& association) {
        links.push_back(name + ' ' + association->GetName({}));
        return true;
      };
      space->GetClass(name, {})->EnumerateAssociationClasses(note, "", "", {});
    }
    std::sort(links.begin(), links.end());
    for (const std::string& fact : links) seen.Add(fact);
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

  std::vector<TCase> GetChanges();
  std::vector<TCase> GetRefusals();
  std::vector<TCase> GetReadings();

  /// Runs the operation with the n-th event of the kind failing; `struck` tells whether it came to
  /// that. A thread of its own has no data yet in any library.
  static std::string Run(const TOperation& operation, EKind kind, int n, bool& struck) {
    std::string answer;
    std::thread([&] {
      TFaults::Arm(kind, n);
      try {
        answer = operation();
      } catch (const TVYRException& failure) {
        answer = "status " + std::to_string(failure.GetStatusCode());
      } catch (const std::bad_alloc&) {
        answer = kind == EKind::kLog ? "bad_alloc" : kFault;
      } catch (const std::runtime_error&) {
        answer = kind == EKind::kLog ? kFault : "runtime_error";
      }
      struck = TFaults::Disarm();
    }).join();
    return answer;
  }

  /// Lets every event of the kind fail in turn, each in a model of its own; returns how many there
  /// were. After a failure all is as before, and the repetition ends as if nothing had failed; what
  /// asks C for memory can mostly do without, and then all goes well.
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
    const TNamespaceDump before = GetState();
    bool struck = false;
    std::string answer = Run(operation, n == 0 ? EKind::kNone : kind, n == 0 ? 1 : n, struck);
    if (n > 0 && answer == kFault) {
      EXPECT_EQ(before.Compare(GetState()), "") << "n = " << n;
      answer = Run(operation, EKind::kNone, 1, struck);
      struck = true;
    } else if (n > 0 && struck && kind != EKind::kC) {
      EXPECT_TRUE(tried.swallows) << "swallowed, n = " << n << ": " << answer;
      const auto now = GetState();
      EXPECT_TRUE(before.Compare(now).empty() || after->Compare(now).empty()) << "n = " << n;
      return false;
    }
    if (n == 0) after = std::make_unique<TNamespaceDump>(GetState()), expected = answer;
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
      allocations += Exhaust(tried, EKind::kNew);
      lines += Exhaust(tried, EKind::kLog);
      Exhaust(tried, EKind::kC);
    }
    RecordProperty("allocations", allocations);
    RecordProperty("log lines", lines);
    EXPECT_GT(allocations, static_cast<int>(cases.size()));
  }

  static inline const std::string kFault = "fault";
  TClass spare, base, sub, link;
  boost::shared_ptr<ICIMQualifier> mark;
  TPropertyDecl speed, state;
  boost::shared_ptr<ICIMMethodDecl> reset;
  TInstance a, b, edge;
  std::unique_ptr<TNamespaceDump> after;
  std::string expected;
};

std::vector<TCase> TFaultTest::GetChanges() {
  return {
      {"allocate a namespace", [=] { NewNamespace(true); }},
      {"drop a namespace",
       [=] {
         const auto dropped = std::make_shared<decltype(space)>(NewNamespace(false));
         (*dropped)->AllocateClass(kBase, {}, {});
         return Do([dropped] { dropped->reset(); });
       }},
      {"allocate a class", [=] { NewClass("CIM_SubclassOfTheBase", base); }, true},
      {"refresh a class",
       [=] {
         AddProperty(base, "PropertyForTheSubclass", kText)();
         AddMethod(base, "MethodForTheSubclass", TType::kUInt32, false)();
         Qualify(*base, "QualifierForTheSubclass", kText);
         return Do([=] { NewClass(kSub); });
       },
       true},
      {"add a class", [=] { return AddClass(NewClass("CIM_SubclassOfTheBase", base)); }},
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
      {"remove an association", [=] { link->RemoveFromNamespace({}); }},
      {"remove a class", [=] { sub->RemoveFromNamespace({}); }},
      {"add an association by what is no boolean",
       [=] {
         const auto added = NewClass("CIM_NoAssociation", base);
         Qualify(*added, "Association", kText);
         return AddClass(added);
       }},
      {"declare a qualifier",
       [=] { NewQualifierDecl("NewMarkOfTheTest", kText)->AddToNamespace({}); }},
      {"declare a qualifier again",
       [=] { NewQualifierDecl("MarkOfTheHierarchy", 1U)->AddToNamespace({}); }},
      {"attach a qualifier", [=] { Qualify(*state, "NewMarkOfTheTest", kText); }},
      {"replace a qualifier", [=] { Qualify(*base, "MarkOfTheHierarchy", kText + kText); }},
      {"set a qualifier", [=] { mark->SetValue(kText + kText, {}); }},
      {"set a default", [=] { speed->SetDefaultValue(kText, {}); }},
      {"declare a property", [=] { return AddProperty(sub, "NewPropertyOfTheTest", kText); }},
      {"override a property", [=] { return AddProperty(sub, kSpeed, 2ULL, {"Override"}); }},
      {"remove a property", [=] { sub->RemovePropertyDecl(speed); }},
      {"declare a method",
       [=] { return AddMethod(sub, "NewMethodOfTheTest", TType::kUInt32, false); }},
      {"override a method", [=] { return AddMethod(sub, kReset, TType::kUInt32, true); }},
      {"remove a method", [=] { sub->RemoveMethodDecl(reset); }},
      {"add a parameter",
       [=] {
         reset->AllocateParameterDecl("NewParameterOfTheTest", TType::kBoolean, {})
             ->AddToMethod({});
       }},
      {"set a value", [=] { a->SetPropertyValue("Id", kText, {}); }},
      {"set a reference", [=] { edge->SetPropertyValue("Dependent", RefTo(a), {}); }, true},
      {"set a previous value", [=] { a->GetProperty("Id", {})->SetPrevValue(kText); }},
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
      {"delete an instance", [=] { edge->Delete({}); }},
      {"clear", [=] { space->ClearInstances(); }},
      {"read an undeclared status",
       [=] { return b->GetProperty("HealthStateOfTheElement", {})->ToString(); }},
      {"read an undeclared description",
       [=] {
         NewInstance(sub)->GetProperty("Description", {});
         return Do([=] { return b->GetProperty("DescriptionOfTheElement", {})->ToString(); });
       }},
  };
}

/// What logs, in every way that a line can matter: before a change, between two lines, alone.
std::vector<TCase> TFaultTest::GetRefusals() {
  return {
      {"look up what is no name", [=] { space->GetClass("no name of a class at all", {}); }},
      {"allocate what is no name", [=] { NewClass("no name of a class at all", base); }, true},
      {"add a class without key", [=] { return AddClass(NewClass("CIM_ClassWithoutKey")); }},
      {"override what is not there",
       [=] { return AddProperty(sub, "PropertyThatIsMissing", kText, {"Override"}); }},
      {"override a missing method",
       [=] { return AddMethod(sub, "MethodThatIsMissing", TType::kUInt32, true); }},
      {"override a method by another type",
       [=] { return AddMethod(sub, kReset, TType::kString, true); }},
      {"add an instance without key", [=] { return AddInstance(base, {}); }},
      {"add a dangling association",
       [=] {
         const auto nobody = RefTo(NewInstance(base, {{"Id", kText}}));
         return AddInstance(link, {{"Antecedent", nobody}, {"Dependent", RefTo(a)}});
       }},
      {"set another type", [=] { a->SetPropertyValue(kSpeed, kText, {}); }},
  };
}

std::vector<TCase> TFaultTest::GetReadings() {
  const auto show = [=](const std::string& name, const TCIMValue& value) -> TOperation {
    a->SetPropertyValue(name, value, {});
    return [property = a->GetProperty(name, {})] { return property->ToString(); };
  };
  const auto walk = [](const char* name, auto enumerate, bool isSwallowed = false) {
    return TCase(name, Walk(enumerate), isSwallowed);
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
      {"show an array",
       [=]() -> TOperation {
         const auto declared = DeclareProperty(
             sub, "States", TCIMValue::Array(TType::kUInt16, {static_cast<unsigned short>(9)}));
         Qualify(*declared, "Values", Texts({kText, kText}));
         return [property = NewInstance(sub)->GetProperty("States", {}), declared] {
           return std::move(property->ToStringVector().at(0));
         };
       }},
      {"path", [=] { return PathOf(*edge); }},
      {"find an instance",
       [=] { return space->GetInstance(a->GetReference({}), {}) == a ? "it" : "none"; }},
      {"list of classes",
       [=] {
         std::string names;
         for (const auto& listed : TClassTree::Flatten(TClassTree::GetTopClasses(*space))) {
           names += listed->GetName({}) + ' ';
         }
         return names;
       }},
      walk("instances", [=](const auto& note) { root()->EnumerateInstances(note, true, {}); }),
      walk("classes", [=](const auto& note) { root()->EnumerateSubClasses(note, true, {}); }),
      walk("keys", [=](const auto& note) { link->EnumerateKeyNames(note, {}); }),
      walk("qualifiers", [=](const auto& note) { state->EnumerateQualifiers(note, {}); }),
      walk("association classes",
           [=](const auto& note) {
             sub->EnumerateAssociationClasses(note, "CIM_Link", "Dependent", {});
           }),
      walk("associated classes",
           [=](const auto& note) {
             base->EnumerateAssociatedClasses(note, "CIM_Link", kBase, "Antecedent", "Dependent",
                                              {});
           }),
      walk(
          "references",
          [=](const auto& note) { a->EnumerateAssociationInstances(note, "", "", {}); }, true),
      walk(
          "associators",
          [=](const auto& note) {
            a->EnumerateAssociatedInstances(note, "CIM_Link", kBase, "Antecedent", "", {});
          },
          true),
  };
}

TEST_F(TFaultTest, AReadingFailsOrAnswers) { ExhaustAll(GetReadings()); }
TEST_F(TFaultTest, AChangeFailsAsAWholeOrNotAtAll) { ExhaustAll(GetChanges()); }
TEST_F(TFaultTest, ARefusalThatFailsChangesNothingElse) { ExhaustAll(GetRefusals()); }

}  // namespace
}  // namespace NZELVYR20
