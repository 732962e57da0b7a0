#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <string>

#include "Cases.h"
#include "ICIMPropertyDecl.h"
#include "TCIMDateTime.h"
#include "TCimFailure.h"
#include "TElementWriter.h"
#include "TLoadedMof.h"
#include "TPathReader.h"
#include "TSampleService.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kElementMof = R"(
class Text { [Key] string K; }; class Truth { [Key] boolean K; }; class Letter { [Key] char16 K; };
class Small { [Key] sint8 K; }; class Great { [Key] uint64 K; }; class Real { [Key] real64 K; };
class Time { [Key] datetime K; }; class Two { [Key] uint16 A; [Key] string B; uint8 None; };
[Association] class Link { [Key] Text ref From; [Key] Two ref To; };
[Association] class LinkOfLinks { [Key] Link ref From; [Key] Text ref To; };
instance of Text { K = "a\"\\ & <b>\n"; }; instance of Truth { K = true; };
instance of Letter { K = '\x00e4'; }; instance of Small { K = -128; };
instance of Great { K = 18446744073709551615; }; instance of Real { K = -1.5e300; };
instance of Time { K = "20260102030405.000006+060"; }; instance of Two { A = 7; B = ""; };
instance of Link { From = "Text.K=\"a\\\"\\\\ & <b>\n\""; To = "Two.A=7,B=\"\""; };
)";

struct TElements {
  explicit TElements(const std::string& text) {
    mof.LoadFile(VYR_SCHEMA_DIR "/qualifiers.mof").LoadText(text);
    EXPECT_EQ(mof.TakeMessages(), "");
  }

  template <class TWrite>
  std::string Write(const TWrite& write) {
    TTextSink sink;
    TXmlWriter xml(sink);
    TElementWriter elements(xml, {"box:5988", "root/cimv2", mof.nameSpace});
    write(elements);
    xml.Flush();
    return sink.text;
  }

  /// The path as the text of an element, or the status of the failure.
  std::string Read(const std::string& text) const {
    pugi::xml_document document;
    document.load_string(text.c_str(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    const TPathReader reader(mof.nameSpace,
                             [](const std::string& name) { return name == "root/cimv2"; });
    try {
      return reader.ReadInstance(document.first_child()).ToString();
    } catch (const TCimFailure& failure) {
      return std::to_string(static_cast<int>(failure.GetStatus()));
    }
  }

  TLoadedMof mof;
};

TEST(Element, DeclarationsAreWrittenWithTheirValues) {
  CheckCases("declarations.txt", [](const std::string& given) {
    const bool isClass = given.find("class D") != std::string::npos;
    TElements elements("class C { [Key] string K; }; " +
                       (isClass ? given : "class D : C { " + given + " };"));
    const auto cimClass = elements.mof.nameSpace->GetClass("D", {});
    const std::string written = elements.Write([&](TElementWriter& writer) {
      TElementForm form;
      form.qualifiers = form.localOnly = true;
      form.classOrigin = isClass;
      writer.WriteClass(*cimClass, form);
    });
    const std::string head = "<CLASS NAME=\"D\" SUPERCLASS=\"C\">";
    return isClass ? written : written.substr(head.size(), written.size() - head.size() - 8);
  });
}

TEST(Element, TextsOfAnyBytesStayXml) {
  const struct {
    const char* given;
    const char* written;
  } rows[] = {
      {" a\tb\n", " a\tb\n"},
      {"&amp; <>\"'", "&amp;amp; &lt;&gt;\"'"},
      {"]]>", "]]&gt;"},
      {"a\r\nb", "a&#13;\nb"},
      {"a\x01\x1F\x7F"
       "b",
       "a\uFFFD\uFFFD\x7F"
       "b"},
      {"\u00E4\u20AC\U0001F600", "\u00E4\u20AC\U0001F600"},
      {"\xC3(", "\uFFFD("},
      {"\xC0\x80<", "\uFFFD\uFFFD&lt;"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xEF\xBF\xBE\xEF\xBF\xBF", "\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xE2\x82", "\uFFFD\uFFFD"},
  };
  for (const auto& row : rows) {
    TTextSink sink;
    TXmlWriter xml(sink);
    xml.WriteElement("A", {{"B", "\"\n\t\r<"}, {"C", {}}}, [&] { xml.WriteText(row.given); });
    xml.Flush();
    EXPECT_EQ(sink.text, std::string("<A B=\"&quot;&#10;&#9;&#13;&lt;\">") + row.written + "</A>");
  }
}

TEST(Element, WhatNoMofCanSayHasAForm) {
  TElements elements("");
  using TType = TCIMValue::TCIMType;
  TCIMDateTime interval;
  interval.Set(200000000, 0, 0, 0, 0);
  const struct {
    TCIMValue value;
    const char* written;
  } rows[] = {
      {1.0 / 0.0, "<VALUE>INF</VALUE>"},
      {-1.0 / 0.0, "<VALUE>-INF</VALUE>"},
      {0.0 / 0.0, "<VALUE>NaN</VALUE>"},
      {static_cast<char16_t>(0xD800), "<VALUE>\uFFFD</VALUE>"},
      {interval, "<VALUE>99999999235959.999999:000</VALUE>"},
      {TCIMValue::Null(TType::kStringArray), ""},
      {TCIMValue::Array(TType::kSInt8, {TCIMValue::Null(TType::kSInt8)}),
       "<VALUE.ARRAY><VALUE.NULL></VALUE.NULL></VALUE.ARRAY>"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(elements.Write([&](TElementWriter& writer) { writer.WriteValue(row.value); }),
              row.written);
  }
}

TEST(Element, PathsThatAreWrittenLeadBack) {
  TElements elements(kElementMof);
  int count = 0;
  for (const auto& cimClass : ListTopClasses(*elements.mof.nameSpace)) {
    for (const auto& instance : ListInstances(*cimClass, false)) {
      const std::string path = instance->GetReference({}).ToString();
      EXPECT_EQ(
          elements.Read(elements.Write([&](auto& writer) { writer.WriteInstanceName(*instance); })),
          path);
      EXPECT_EQ(
          elements.Read(elements.Write([&](auto& writer) { writer.WriteInstancePath(*instance); })),
          path);
      ++count;
    }
  }
  EXPECT_EQ(count, 9);
}

TEST(Element, PathsOfAnyClientLeadToWhatTheyMean) {
  const TElements elements(kElementMof);
  CheckCases("paths.txt", [&](const std::string& given) { return elements.Read(given); });
  const std::string key(70000, 'k');
  EXPECT_EQ(elements.Read("<INSTANCENAME CLASSNAME=\"Text\"><KEYVALUE>" + key +
                          "</KEYVALUE></INSTANCENAME>"),
            "4");
}

}  // namespace
}  // namespace NZELVYR20
