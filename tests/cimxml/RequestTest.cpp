#include <gtest/gtest.h>

#include <algorithm>
#include <boost/algorithm/string.hpp>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Cases.h"
#include "TClientCall.h"
#include "TSampleService.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kRequestMof =
    "class T { [Key] string Id; uint32 Run(); };"
    "instance of T { Id = \"a\"; };";

std::optional<std::string>& Header(TCimXmlRequest& request, const std::string& name) {
  static const std::map<std::string, std::optional<std::string> TCimXmlRequest::*> members = {
      {"Host", &TCimXmlRequest::host},
      {"Content-Type", &TCimXmlRequest::contentType},
      {"CIMOperation", &TCimXmlRequest::operation},
      {"CIMProtocolVersion", &TCimXmlRequest::protocolVersion},
      {"CIMMethod", &TCimXmlRequest::method},
      {"CIMObject", &TCimXmlRequest::object},
      {"CIMBatch", &TCimXmlRequest::batch}};
  return request.*members.at(name);
}

/// With "\x41" and "\n" made bytes.
std::string Bytes(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.compare(at, 2, "\\x") == 0) {
      bytes += static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16));
      at += 3;
    } else {
      bytes += text[at];
    }
  }
  return boost::replace_all_copy(bytes, "\\n", "\n");
}

void Change(TCimXmlRequest& request, const std::string& change) {
  const std::size_t arrow = change.find(" => ");
  if (change.rfind("= ", 0) == 0) {
    request.body = Bytes(change.substr(2));
  } else if (arrow != std::string::npos) {
    const std::string before = change.substr(0, arrow);
    EXPECT_NE(request.body.find(before), std::string::npos) << change;
    boost::replace_first(request.body, before, Bytes(change.substr(arrow + 4)));
  } else if (change.back() == '!') {
    Header(request, change.substr(0, change.size() - 1)).reset();
  } else {
    const std::size_t colon = change.find(": ");
    Header(request, change.substr(0, colon)) = change.substr(colon + 2);
  }
}

TCimXmlRequest UsualRequest() {
  TCimXmlRequest request =
      TClientCall::Read("GetClass ClassName=:T LocalOnly=FALSE PropertyList={Id}").ByPython();
  request.protocolVersion = "1.0";
  return request;
}

TEST(Request, IsRefusedOrFailsAsTheProtocolSays) {
  TSampleService service(kRequestMof);
  int count = 0;
  std::istringstream rows(ReadData("malformed.txt"));
  for (std::string row; std::getline(rows, row);) {
    if (row.empty() || row[0] == '#') continue;
    std::vector<std::string> parts;
    boost::iter_split(parts, row, boost::first_finder(" | "));
    TCimXmlRequest request = UsualRequest();
    for (std::size_t i = 1; i < parts.size(); ++i) Change(request, parts[i]);
    EXPECT_EQ(service.Status(request), parts.at(0)) << row;
    ++count;
  }
  EXPECT_GE(count, 100);
}

TEST(Request, NestsSoDeepAndNoDeeper) {
  TSampleService service(kRequestMof);
  for (const int depth : {10, 1000, 1000000}) {
    TCimXmlRequest request = UsualRequest();
    std::string nested;
    for (int i = 0; i < depth; ++i) nested += "<VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"T\">";
    for (int i = 0; i < depth; ++i) nested += "</INSTANCENAME></VALUE.REFERENCE>";
    boost::replace_first(request.body, "<CLASSNAME NAME=\"T\"/>", nested);
    EXPECT_EQ(service.Status(request), depth == 10 ? "200 CIM 4" : "400 request-not-well-formed");
  }
}

TEST(Request, IsAnsweredWithItsOwnNamesAndTexts) {
  TSampleService service(kRequestMof);
  TCimXmlRequest request = UsualRequest();
  boost::replace_all(request.body, "GetClass", "gETcLASS");
  boost::replace_all(request.body, "1001", "a&quot;&lt;\n&#10;b");
  const pugi::xml_node response = service.Ask(request);
  EXPECT_STREQ(response.attribute("NAME").value(), "gETcLASS");
  EXPECT_STREQ(response.parent().parent().attribute("ID").value(), "a\"< \nb");
}

/// The rules themselves: what a client would refuse is found.
TEST(Request, IsAnsweredByRulesThatSeeFaults) {
  TSampleService service(kRequestMof);
  const TAnswerRules rules;
  TTextSink sink;
  service.Get().Answer(TClientCall::Read("EnumerateInstances ClassName=:T").ByPython(), sink);
  EXPECT_EQ(rules.Check(sink.text), "");
  for (const auto& [before, after] : std::map<std::string, std::string>{
           {"NAME=\"Id\" TYPE=\"string\"", "NAME=\"Id\""},
           {"TYPE=\"string\"><VALUE>", "TYPE=\"uint8\"><VALUE>"},
           {"<PROPERTY ", "<PROPERTY VERSION=\"1\" "},
           {"<INSTANCE ", "<VALUE></VALUE><INSTANCE "},
           {"</IRETURNVALUE>", "<CLASSNAME NAME=\"T\"></CLASSNAME></IRETURNVALUE>"},
           {"<IRETURNVALUE>", "<IRETURNVALUE> "},
           {"</CIM>", "<!-- --></CIM>"},
           {"<VALUE>a</VALUE>", "<VALUE/>"}}) {
    EXPECT_NE(sink.text.find(before), std::string::npos) << before;
    EXPECT_NE(rules.Check(boost::replace_first_copy(sink.text, before, after)), "") << after;
  }
}

TEST(Request, OfAMethodIsAnsweredWithWhatIsMissing) {
  TSampleService service(kRequestMof);
  const auto call = [&](const std::string& method, const std::string& object,
                        const std::string& target) {
    TCimXmlRequest request = UsualRequest();
    request.method = method;
    request.object = object;
    request.body =
        "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" PROTOCOLVERSION="
        "\"1.0\"><SIMPLEREQ><METHODCALL NAME=\"" +
        method + "\">" + target +
        "<PARAMVALUE NAME=\"P\" PARAMTYPE=\"string\"><VALUE>a</VALUE></PARAMVALUE>"
        "</METHODCALL></SIMPLEREQ></MESSAGE></CIM>";
    return service.Status(request);
  };
  const std::string space =
      "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>"
      "</LOCALNAMESPACEPATH>";
  const auto ofClass = [&](const std::string& name) {
    return "<LOCALCLASSPATH>" + space + "<CLASSNAME NAME=\"" + name + "\"/></LOCALCLASSPATH>";
  };
  const auto ofInstance = [&](const std::string& id) {
    return "<LOCALINSTANCEPATH>" + space +
           "<INSTANCENAME CLASSNAME=\"T\"><KEYBINDING NAME=\"Id\">"
           "<KEYVALUE>" +
           id + "</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH>";
  };
  EXPECT_EQ(call("run", "root/cimv2:T", ofClass("T")), "200 CIM 16");
  EXPECT_EQ(call("Run", "root%2Fcimv2%3At.Id=\"a\"", ofInstance("a")), "200 CIM 16");
  EXPECT_EQ(call("Fly", "root/cimv2:T", ofClass("T")), "200 CIM 17");
  EXPECT_EQ(call("Run", "root/cimv2:T.", ofInstance("b")), "200 CIM 6");
  EXPECT_EQ(call("Run", "root/cimv2:X", ofClass("X")), "200 CIM 6");
  EXPECT_EQ(call("Run", "root/cimv2:<root>", ofClass("&lt;root&gt;")), "200 CIM 6");
  EXPECT_EQ(call("Run", "root/cimv2:X", ofClass("T")), "400 header-mismatch");
  EXPECT_EQ(call("Run", "root/cimv2:Tx", ofClass("T")), "400 header-mismatch");
  EXPECT_EQ(call("Run", "root/cimv2", ofClass("T")), "400 header-mismatch");
  EXPECT_EQ(call("Run", "root/cimv2:T", ""), "400 request-not-valid");
}

std::size_t CountChildren(const pugi::xml_node& node) {
  return static_cast<std::size_t>(std::distance(node.begin(), node.end()));
}

/// Takes so many pieces, and no more.
struct TNarrowSink : TTextSink {
  explicit TNarrowSink(std::size_t limit) : limit_(limit) {}

  void Write(std::string_view piece) override {
    if (++pieces > limit_) throw TAnswerTooLarge();
    largest = std::max(largest, piece.size());
    TTextSink::Write(piece);
  }

  void Restart() override {
    pieces = 0;
    TTextSink::Restart();
  }

  std::size_t pieces = 0;
  std::size_t largest = 0;

 private:
  std::size_t limit_;
};

TEST(Request, IsAnsweredInPiecesAsLongAsTheSinkTakesThem) {
  TSampleService service(kRequestMof);
  const boost::shared_ptr<ICIMClass> cimClass = service.GetNamespace()->GetClass("T", {});
  for (int i = 0; i < 2000; ++i) {
    const boost::shared_ptr<ICIMInstance> instance = cimClass->AllocateInstance({});
    instance->SetPropertyValue("Id", std::to_string(i), {});
    instance->AddToNamespace({});
  }
  const TCimXmlRequest request = TClientCall::Read("EnumerateInstances ClassName=:T").ByPython();
  EXPECT_EQ(CountChildren(service.Ask(request).first_child()), 2001U);
  TNarrowSink wide(1000);
  EXPECT_EQ(service.Get().Answer(request, wide).status, 200);
  EXPECT_GT(wide.pieces, 5U);
  EXPECT_LT(wide.largest, wide.text.size() / 5);
  TNarrowSink narrow(3);
  EXPECT_EQ(service.Get().Answer(request, narrow).status, 200);
  EXPECT_NE(narrow.text.find("<ERROR CODE=\"27\""), std::string::npos);
  EXPECT_EQ(service.Status(request), "200");
}

TEST(Request, IsToldWhyItIsRefusedInAHeadersLetters) {
  TSampleService service(kRequestMof);
  TTextSink sink;
  TCimXmlRequest request = UsualRequest();
  boost::replace_first(request.body, "<IMETHODCALL NAME", "<\xC3\xA4 NAME");
  boost::replace_first(request.body, "</IMETHODCALL>", "</\xC3\xA4>");
  EXPECT_EQ(service.Get().Answer(request, sink).detail,
            "SIMPLEREQ%3A%20no%20IMETHODCALL%7CMETHODCALL");
  boost::replace_all(request.body, "SIMPLEREQ", "\xC3\xA4");
  EXPECT_EQ(service.Get().Answer(request, sink).detail, "MESSAGE%3A%20no%20SIMPLEREQ");
}

}  // namespace
}  // namespace NZELVYR20
