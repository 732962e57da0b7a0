#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <set>

#include "ICIMPropertyDecl.h"
#include "PluginNamespace.h"
#include "TMofLoader.h"
#include "TMofWriter.h"
#include "TNamespaceDump.h"

namespace NZELVYR20 {
namespace {

using TSpace = boost::shared_ptr<ICIMNamespace>;

/// A namespace with what the text says, which holds no error.
TSpace Load(const std::string& text) {
  TSpace space = AllocatePluginNamespace();
  const auto check = [](const std::string& message) {
    EXPECT_NE(message.find(": note: "), std::string::npos) << message;
  };
  TMofLoader loader(space, {}, check);
  loader.ReadText("text", text);
  loader.Enter();
  return space;
}

TSpace LoadFile(const std::string& file) {
  TSpace space = AllocatePluginNamespace();
  TMofLoader loader(space, {}, [](const std::string&) {});
  loader.Read(file);
  loader.Enter();
  return space;
}

std::string ReadFile(const char* name) {
  std::ifstream file(std::string(MOF_DATA_DIR "/") + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What is written leads to an equal namespace and to the same text again.
std::string RoundTrip(const TSpace& space, std::size_t facts) {
  std::string text = TMofWriter::WriteNamespace(space);
  const TNamespaceDump dump(space);
  const TSpace loaded = Load(text);
  EXPECT_GT(dump.GetSize(), facts);
  EXPECT_EQ(dump.Compare(TNamespaceDump(loaded)), "");
  EXPECT_TRUE(TMofWriter::WriteNamespace(loaded) == text);
  return text;
}

TEST(TMofTextTest, EverySpellingIsWrittenInOneWay) {
  const TSpace space = Load(ReadFile("spellings.mof"));
  EXPECT_EQ(RoundTrip(space, 100), ReadFile("written.mof"));
  const std::string shown = TMofWriter::WriteClass(space->GetClass("Below", {}), true);
  EXPECT_EQ(shown.find("[Values{\"a\", \"b\"}]\nclass Below : Base {\n"), 0U) << shown;
  EXPECT_NE(shown.find("\n  // inherited from Base\n  [Key(true)]\n  string Id;\n"),
            std::string::npos)
      << shown;
}

TEST(TMofTextTest, ValuesThatNoTextGives) {
  TSpace space = AllocatePluginNamespace();
  const std::pair<TCIMValue, const char*> rows[] = {
      {std::numeric_limits<double>::infinity(), "NULL /* inf */"},
      {"\xC3(\xED\xA0\x80", "\"\\x00C3(\\x00ED\\x00A0\\x0080\""},
      {std::string("\0", 1), "\"\\xFFFD\""},
  };
  for (const auto& [value, text] : rows) {
    const auto any = space->AllocateClass("Any", {}, {});
    any->AllocatePropertyDecl("V", TCIMValue::Null(value.GetType()), {})->AddToClass({});
    const auto instance = any->AllocateInstance({});
    instance->SetPropertyValue("V", value, {});
    EXPECT_EQ(TMofWriter::WriteInstance(instance),
              std::string("instance of Any {\n  V = ") + text + ";\n};\n");
  }
}

/// A text of whatever can be declared: qualifiers of every type, scope and flavor, hierarchies with
/// overrides, associations, methods, values of every type, and instances.
class TRandomText {
 public:
  explicit TRandomText(unsigned seed) : random_(seed) {
    for (int count = 0; count < 12; ++count) AddQualifier("q" + std::to_string(count));
    for (int count = 0; count < 14; ++count) AddClass("C" + std::to_string(count));
    for (int count = 0; count < 40; ++count) AddInstance("$i" + std::to_string(count));
  }

  const std::string& Get() const { return text_; }

 private:
  struct TFeature {
    std::string name, type;
    std::size_t target = 0;  ///< of a reference, the class
  };
  struct TClass {
    std::string name;
    std::vector<TFeature> features;
    std::set<std::size_t> selfAndAbove;
    bool isAssociation = false;
    std::vector<std::string> instances = {};
  };

  std::size_t Below(std::size_t limit) { return random_() % limit; }
  bool Chance(unsigned percent) { return Below(100) < percent; }
  template <class TList>
  const auto& Pick(const TList& list) {
    return list[Below(std::size(list))];
  }

  std::string Text() {
    static const char* const kParts[] = {
        "plain ",     "\\\"quoted\\\"", "\\\\",     "\\\\\\\"",
        "\\n",        "\\t\\r\\b\\f",   "\\x0001F", "\\x001F0",
        "\\x007f",    "\xC3\xA9",       "'",        "  ",
        "/* none */", "// none",        "\\\\x41",  "\xF0\x9F\x98\x80",
        "{1, 2}",     "NULL",           "$i1",      "a longer run of words "};
    std::string text = "\"";
    for (auto count = Chance(20) ? 30 : Below(5); count > 0; --count) text += Pick(kParts);
    return text + '"';
  }

  std::string Type() {
    static const char* const kTypes[] = {"boolean", "uint8",  "sint8",  "uint16",  "sint16",
                                         "uint32",  "sint32", "uint64", "sint64",  "real32",
                                         "real64",  "char16", "string", "datetime"};
    return Pick(kTypes);
  }

  std::string Scalar(const std::string& type) {
    static const std::vector<const char*> kIntegers = {"0", "1", "17", "0x7F", "+101b"};
    static const std::map<std::string, std::vector<const char*>> kValues = {
        {"boolean", {"true", "FALSE"}},
        {"uint8", {"255"}},
        {"sint8", {"-128"}},
        {"uint16", {"65535"}},
        {"sint16", {"-32768"}},
        {"uint32", {"4294967295"}},
        {"sint32", {"-2147483648"}},
        {"uint64", {"18446744073709551615"}},
        {"sint64", {"-9223372036854775808"}},
        {"real32", {"1e30", "-.1", "33333.333", "7"}},
        {"real64", {"-5e-324", "1E300", "0.1", "-2"}},
        {"char16", {"'x'", "'\\''", "'\\xD800'", "'\\x0'", "'\xC3\xA9'"}},
        {"datetime", {"\"99999999235959.000001:000\"", "\"19991231235959.123456-300\""}}};
    if (Chance(10)) return "NULL";
    if (type == "string") return Text();
    const bool isInteger = type.find("int") != std::string::npos && Chance(50);
    return isInteger ? Pick(kIntegers) : Pick(kValues.at(type));
  }

  /// Behind a name: the brackets of an array, sometimes, and a value.
  std::string Value(const std::string& type, bool isArray) {
    if (!isArray || Chance(15)) return Scalar(type);
    std::string all = "{";
    for (auto count = Below(Chance(20) ? 40 : 4); count > 0; --count) all += Scalar(type) + ", ";
    return all + "}";
  }

  std::string Flavors(const char* separator) {
    return std::string(Chance(50) ? "EnableOverride" : "DisableOverride") + separator +
           (Chance(50) ? "ToSubclass" : "Restricted") +
           (Chance(30) ? separator + std::string("Translatable") : "");
  }

  void AddQualifier(const std::string& name) {
    static const char* const kScopes[] = {"any",
                                          "class",
                                          "association",
                                          "property",
                                          "property, reference",
                                          "method, parameter, indication"};
    qualifiers_.push_back({name, Type(), Below(2)});
    const auto& [unused, type, isArray] = qualifiers_.back();
    text_ += "Qualifier " + name + " : " + type + (isArray != 0 ? "[] = " : " = ") +
             Value(type, isArray != 0) + ", Scope(" + Pick(kScopes) + "), Flavor(" + Flavors(", ") +
             ");\n";
  }

  /// A list of qualifiers that begins with the given ones.
  std::string Qualifiers(std::string list) {
    for (auto at = Below(8); at < qualifiers_.size(); at += 1 + Below(8)) {
      const TFeature& picked = qualifiers_[at];
      const std::string value = Value(picked.type, picked.target != 0);
      list += (list.empty() ? "" : ", ") + picked.name +
              (value[0] == '{' ? value : "(" + value + ")") +
              (Chance(30) ? " : " + Flavors(" ") : "");
    }
    return list.empty() ? "" : "[" + list + "] ";
  }

  std::string Property(const std::string& first, const TFeature& declared) {
    const bool isArray = declared.target != 0;
    return "  " + Qualifiers(first) + declared.type + ' ' + declared.name +
           (isArray ? "[] = " : " = ") + Value(declared.type, isArray) + ";\n";
  }

  std::string NextName() { return (Chance(50) ? "v" : "Other") + std::to_string(next_++); }

  void AddClass(const std::string& name) {
    const bool isTop = classes_.empty() || Chance(30);
    TClass made = isTop ? TClass() : Pick(classes_);
    made.instances.clear();
    const bool becomesAssociation = !classes_.empty() && !made.isAssociation && Chance(30);
    std::string first = becomesAssociation ? "Association" : "";
    if (Chance(20)) first += first.empty() ? "Abstract" : ", Abstract";
    text_ += Qualifiers(first) + "class " + name + (isTop ? "" : " : " + made.name) + " {\n";
    made.name = name;
    made.selfAndAbove.insert(classes_.size());
    made.isAssociation = made.isAssociation || becomesAssociation;
    for (const TFeature& inherited : made.features) {
      if (inherited.type[0] == '$' || Chance(70)) continue;
      text_ += Property("Override(\"" + inherited.name + "\")", inherited);
    }
    if (isTop) {
      made.features.push_back({"$" + NextName(), "$key"});
      text_ += "  [Key] string " + made.features.back().name.substr(1) + ";\n";
    }
    for (auto count = Below(5); count > 0; --count) {
      made.features.push_back({NextName(), Type(), Below(2)});
      text_ += Property("", made.features.back());
    }
    for (int count = made.isAssociation ? 2 : 0; count > 0; --count) {
      made.features.push_back({NextName(), "$ref", Below(classes_.size())});
      text_ += "  " + Qualifiers(Chance(80) ? "Key" : "") +
               classes_[made.features.back().target].name + " REF " + made.features.back().name +
               ";\n";
    }
    for (auto count = Below(3); count > 0; --count) {
      text_ += "  " + Qualifiers("") + Type() + ' ' + NextName() + '(';
      for (auto in = Below(4); in > 0; --in) {
        text_ += Qualifiers("") + (Chance(20) ? "object REF" : Type()) + " in" +
                 std::to_string(in) + (Chance(30) ? "[]" : "") + (in > 1 ? ", " : "");
      }
      text_ += ");\n";
    }
    text_ += "};\n";
    classes_.push_back(made);
  }

  void AddInstance(const std::string& alias) {
    TClass& of = classes_[Below(classes_.size())];
    std::string text = "instance of " + of.name + " as " + alias + " {\n";
    for (const TFeature& feature : of.features) {
      if (feature.type == "$ref") {
        std::vector<std::string> targets;
        for (const TClass& target : classes_) {
          if (target.selfAndAbove.count(feature.target) == 0) continue;
          targets.insert(targets.end(), target.instances.begin(), target.instances.end());
        }
        if (targets.empty()) return;
        text += "  " + feature.name + " = " + Pick(targets) + ";\n";
      } else if (feature.type == "$key") {
        text += "  " + feature.name.substr(1) + " = " + Text() + " \"" + alias + "\";\n";
      } else if (Chance(50)) {
        text += "  " + feature.name + " = " + Value(feature.type, feature.target != 0) + ";\n";
      }
    }
    text_ += text + "};\n";
    of.instances.push_back(alias);
  }

  std::mt19937 random_;
  std::string text_ =
      "Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);\n"
      "Qualifier Abstract : boolean = false, Scope(class), Flavor(Restricted);\n"
      "Qualifier Key : boolean = false, Flavor(DisableOverride);\n"
      "Qualifier Override : string, Flavor(Restricted);\n";
  std::vector<TFeature> qualifiers_;  ///< the target of an array's is 1
  std::vector<TClass> classes_;
  int next_ = 0;
};

TEST(TMofTextTest, RandomTextsMakeTheRoundTrip) {
  for (unsigned seed = 1; seed <= 40 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    RoundTrip(Load(TRandomText(seed).Get()), 250);
  }
}

TEST(TMofTextTest, SchemasMakeTheRoundTrip) {
  RoundTrip(LoadFile(VYR_SCHEMA_DIR "/vyr.mof"), 500);
  const char* const file = std::getenv("VYR_CIM_SCHEMA");
  if (file == nullptr) GTEST_SKIP() << "VYR_CIM_SCHEMA names no schema";
  RoundTrip(LoadFile(file), 10000);
}

}  // namespace
}  // namespace NZELVYR20
