#include "TMofWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "PluginNamespace.h"
#include "TCIMDateTime.h"

namespace NZELVYR20 {
namespace {

using TDecl = ICIMQualifierDecl;
using TType = TCIMValue::TCIMType;

class TMofWriterTest : public testing::Test {
 protected:
  TMofWriterTest() : namespace_(AllocatePluginNamespace()) {
    Declare("Association", false, TDecl::kAssociation, TDecl::kToSubclass);
    Declare("Description", TCIMValue::Null(TType::kString), TDecl::kAny,
            TDecl::kOverridable | TDecl::kTranslatable);
    Declare("Key", false, TDecl::kProperty | TDecl::kReference, TDecl::kToSubclass);
    Declare("Values", TCIMValue::Array(TType::kString, {"none"}), TDecl::kNoScope,
            TDecl::kOverridable | TDecl::kToSubclass);
    base_ = Allocate("Base", {});
    Attach(*base_, "Values", TCIMValue::Array(TType::kString, {"a", "b"}));
    Attach(*base_, "Description", "The \"base\".");
    AddProperty(*base_, "Id", TCIMValue::Null(TType::kString), true);
    base_->AddToNamespace({});
  }

  void Declare(const char* name, const TCIMValue& value, TDecl::EScope scope,
               TDecl::EFlavor flavor) {
    namespace_->AllocateQualifierDecl(name, value, scope, flavor, {})->AddToNamespace({});
  }

  boost::shared_ptr<ICIMClass> Allocate(const std::string& name,
                                        const boost::shared_ptr<ICIMClass>& superClass) {
    return namespace_->AllocateClass(name, superClass, {});
  }

  boost::shared_ptr<ICIMQualifier> Attach(ICIMNamedElement& element, const char* name,
                                          const TCIMValue& value) {
    auto qualifier = element.AllocateQualifier(namespace_->GetQualifierDecl(name, {}), value, {});
    qualifier->AddToClassOrProperty({});
    return qualifier;
  }

  boost::shared_ptr<ICIMPropertyDecl> AddProperty(ICIMClass& cimClass, const char* name,
                                                  const TCIMValue& value, bool isKey) {
    auto property = cimClass.AllocatePropertyDecl(name, value, {});
    if (isKey) Attach(*property, "Key", true);
    property->AddToClass({});
    return property;
  }

  boost::shared_ptr<ICIMPropertyDecl> AddLink(const std::string& name,
                                              const boost::shared_ptr<ICIMClass>& superClass,
                                              const char* reference,
                                              const boost::shared_ptr<ICIMClass>& target) {
    const auto link = Allocate(name, superClass);
    if (!superClass) Attach(*link, "Association", true);
    auto end = AddProperty(*link, reference, TCIMValue::NullReference(target), true);
    link->AddToNamespace({});
    return end;
  }

  boost::shared_ptr<ICIMInstance> AddInstance(const char* className, const char* key,
                                              const TCIMValue& value) {
    auto instance = namespace_->GetClass(className, {})->AllocateInstance({});
    instance->SetPropertyValue(key, value, {});
    instance->AddToNamespace({});
    return instance;
  }

  /// A value as it stands in an instance, behind the "=".
  std::string Write(const TCIMValue& value) {
    const auto cimClass = Allocate("Any", {});
    AddProperty(*cimClass, "V", TCIMValue::Null(value.GetType()), false);
    const auto instance = cimClass->AllocateInstance({});
    instance->SetPropertyValue("V", value, {});
    const std::string text = TMofWriter::WriteInstance(instance);
    const std::size_t begin = std::string("instance of Any {\n  V =").size();
    return text.substr(begin, text.size() - begin - std::string(";\n};\n").size());
  }

  /// The names of the classes and instances that a namespace's text declares, in its order.
  std::string WriteOrder() {
    std::istringstream text(TMofWriter::WriteNamespace(namespace_));
    std::string order;
    for (std::string line; std::getline(text, line);) {
      const bool isHead = line.rfind("class ", 0) == 0 || line.rfind("instance ", 0) == 0;
      if (isHead) order += line.substr(line.find(' ') + 1, line.find(" {") - line.find(' '));
    }
    return order;
  }

  boost::shared_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMClass> base_;
};

TEST_F(TMofWriterTest, Values) {
  TCIMDateTime interval;
  interval.Set(1, 2, 3, 4, 5);
  TCIMReference path(namespace_, {});
  path.SetClass(base_);
  path.AddKeyValue("Id", "a\"b");
  const std::string longText =
      "A text that is too long for one line is cut at blanks, like \"this\" one.\nSee.";
  const struct {
    TCIMValue value;
    std::string text;
  } kCases[] = {
      {true, " true"},
      {static_cast<signed char>(-128), " -128"},
      {18446744073709551615ULL, " 18446744073709551615"},
      {1.0F, " 1.0"},
      {1e300, " 1.0e+300"},
      {-2.5e-7, " -2.5e-07"},
      {std::numeric_limits<double>::infinity(), " NULL /* inf */"},
      {u'x', " 'x'"},
      {u'\'', " '\\''"},
      {u'"', " '\"'"},
      {u'\u00E9', " '\xC3\xA9'"},
      {char16_t{0}, " '\\x0000'"},
      {char16_t{0xD83D}, " '\\xD83D'"},
      {"", " \"\""},
      {"'\"\\\n\t\r\b\f\x7F\xC3\xA9", " \"'\\\"\\\\\\n\\t\\r\\b\\f\\x007F\xC3\xA9\""},
      {"\x01"
       "F \xC3(\xED\xA0\x80",
       " \"\\x0001F \\x00C3(\\x00ED\\x00A0\\x0080\""},
      {std::string("\0", 1), " \"\\xFFFD\""},
      {TCIMValue::Null(TType::kString), " NULL"},
      {interval, " \"00000001020304.000005:000\""},
      {TCIMValue::Array(TType::kUInt8, {}), " {}"},
      {TCIMValue::Array(TType::kString, {"a", TCIMValue::Null(TType::kString)}), " {\"a\", NULL}"},
      {TCIMValue::Null(TType::kStringArray), " NULL"},
      {TCIMValue::Array(TType::kReference, {path}), " {\"Base.Id=\\\"a\\\\\\\"b\\\"\"}"},
      {longText,
       "\n      \"A text that is too long for one line is cut at blanks, like \\\"this\\\" \""
       "\n      \"one.\\nSee.\""},
      {TCIMValue::Array(TType::kString, {"one", std::string(80, 'x'), "two", "three"}),
       " {\n      \"one\",\n      \"" + std::string(80, 'x') + "\",\n      \"two\", \"three\"}"},
  };
  for (const auto& test : kCases) EXPECT_EQ(Write(test.value), test.text);
}

TEST_F(TMofWriterTest, Elements) {
  const auto disk = Allocate("Disk", base_);
  const auto sizes = AddProperty(*disk, "Sizes", TCIMValue::Array(TType::kUInt8, {}), false);
  Attach(*sizes, "Key", false)->SetFlavor(TDecl::kOverridable | TDecl::kTranslatable, {});
  Attach(*sizes, "Description", "Sizes.")->UnsetFlavor(TDecl::kOverridable, {});
  const auto method = disk->AllocateMethodDecl("Format", TType::kUInt32, {});
  const auto to = method->AllocateParameterDecl("To", TType::kReference, {});
  Attach(*to, "Values", TCIMValue::Null(TType::kStringArray));
  to->AddToMethod({});
  method->AllocateParameterDecl("Names", TType::kStringArray, {})->AddToMethod({});
  method->AddToClass({});
  disk->AllocateMethodDecl("Stop", TType::kNone, {})->AddToClass({});
  disk->AddToNamespace({});
  AddLink("Link", {}, "One", disk);

  const std::string declared =
      "\n"
      "  [Key(false) : EnableOverride Translatable,\n"
      "   Description(\"Sizes.\") : DisableOverride]\n"
      "  uint8 Sizes[] = {};\n";
  const std::string methods =
      "\n"
      "  uint32 Format(\n"
      "      string Names[],\n"
      "      [Values(NULL)]\n"
      "      object REF To);\n"
      "\n"
      "  void Stop();\n"
      "};\n";
  EXPECT_EQ(TMofWriter::WriteClass(disk, false), "class Disk : Base {\n" + declared + methods);
  EXPECT_EQ(TMofWriter::WriteClass(disk, true),
            "[Values{\"a\", \"b\"}]\nclass Disk : Base {\n\n"
            "  // inherited from Base\n  [Key(true)]\n  string Id;\n" +
                declared + methods);
  EXPECT_EQ(TMofWriter::WriteClass(namespace_->GetClass("Link", {}), false),
            "[Association(true)]\nclass Link {\n\n  [Key(true)]\n  Disk REF One;\n};\n");
  EXPECT_EQ(TMofWriter::WriteClass(base_, false),
            "[Description(\"The \\\"base\\\".\"),\n Values{\"a\", \"b\"}]\n"
            "class Base {\n\n  [Key(true)]\n  string Id;\n};\n");
  EXPECT_EQ(TMofWriter::WriteQualifierDecl(namespace_->GetQualifierDecl("Description", {})),
            "Qualifier Description : string = NULL,\n    Scope(any),\n"
            "    Flavor(EnableOverride, Restricted, Translatable);\n");
  EXPECT_EQ(TMofWriter::WriteQualifierDecl(namespace_->GetQualifierDecl("Key", {})),
            "Qualifier Key : boolean = false,\n    Scope(property, reference),\n"
            "    Flavor(DisableOverride, ToSubclass);\n");
  EXPECT_EQ(TMofWriter::WriteQualifierDecl(namespace_->GetQualifierDecl("Values", {})),
            "Qualifier Values : string[] = {\"none\"},\n"
            "    Flavor(EnableOverride, ToSubclass);\n");
}

TEST_F(TMofWriterTest, Order) {
  const auto early = AddLink("Early", {}, "One", base_);
  AddLink("Late", {}, "One", base_);
  const auto late = namespace_->GetClass("Late", {});
  early->SetDefaultValue(TCIMValue::NullReference(late), {});
  Allocate("Below", base_)->AddToNamespace({});
  // A class that needs its own subclass, and one that needs another tree's.
  const auto circle = AddLink("Circle", {}, "One", base_);
  AddLink("Inner", namespace_->GetClass("Circle", {}), "Two", late);
  circle->SetDefaultValue(TCIMValue::NullReference(namespace_->GetClass("Inner", {})), {});
  AddLink("Outer", late, "Two", namespace_->GetClass("Inner", {}));

  const auto target = AddInstance("Below", "Id", "x");
  const auto link = AddInstance("Late", "One", TCIMValue(target->GetReference({})));
  AddInstance("Early", "One", TCIMValue(link->GetReference({})));
  EXPECT_EQ(WriteOrder(),
            "Base Below : Base Early Late Circle Inner : Circle Outer : Late "
            "of Below of Late of Early ");
}

}  // namespace
}  // namespace NZELVYR20
