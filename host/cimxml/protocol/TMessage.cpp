#include "TMessage.h"

#include <cstddef>
#include <optional>
#include <string_view>

#include "CheckElements.h"
#include "CheckXml.h"
#include "FoldName.h"
#include "PercentText.h"
#include "TRefusal.h"

namespace NZELVYR20 {
namespace {

std::string WithoutBlanks(const std::string& text) {
  std::string kept;
  for (const char letter : text) {
    if (letter != ' ' && letter != '\t') kept += letter;
  }
  return kept;
}

/// The parameters of a media type that do not matter are those that are no charset.
bool IsXmlInUtf8(const std::string& contentType) {
  std::string rest = FoldName(WithoutBlanks(contentType)) + ';';
  bool isFirst = true;
  while (!rest.empty()) {
    const std::string part = rest.substr(0, rest.find(';'));
    rest.erase(0, part.size() + 1);
    if (isFirst && part != "application/xml" && part != "text/xml") return false;
    const bool isCharset = part.rfind("charset=", 0) == 0;
    if (isCharset && part != "charset=utf-8" && part != "charset=\"utf-8\"") return false;
    isFirst = false;
  }
  return true;
}

bool IsSame(std::string_view left, std::string_view right) {
  return CompareFolded(left, right) == 0;
}

void CheckHeaders(const TCimXmlRequest& request) {
  if (!request.host) throw TRefusal(400, "", "no Host");
  if (!request.contentType || !IsXmlInUtf8(*request.contentType)) {
    throw TRefusal(400, "", "Content-Type is not XML in UTF-8");
  }
  if (!request.operation) throw TRefusal(400, "", "no CIMOperation");
  if (!IsSame(*request.operation, "MethodCall")) {
    throw TRefusal(400, "unsupported-operation", "CIMOperation is not MethodCall");
  }
  if (request.batch) throw TRefusal(501, "multiple-requests-unsupported");
}

/// Versions of one major number, such as "2.3", understand each other.
void CheckVersion(std::string_view version, char major, const char* refusal) {
  constexpr std::string_view kVersionDigits = "0123456789";
  const bool isVersion = version.size() > 2 && version[1] == '.' &&
                         version.find_first_not_of(kVersionDigits, 2) == std::string_view::npos;
  if (!isVersion || version[0] != major) throw TRefusal(501, refusal);
}

[[noreturn]] void RefuseHeader(const std::string& name) {
  throw TRefusal(400, "header-mismatch", name + " is missing or unlike the body");
}

/// What a header that came says is what the body says.
void CheckHeader(const char* name, const std::optional<std::string>& sent,
                 const std::string& expected) {
  if (!sent || !IsSame(DecodePercent(*sent), expected)) RefuseHeader(name);
}

}  // namespace

std::string JoinNamespace(const pugi::xml_node& path) {
  std::string joined;
  for (const pugi::xml_node& segment : path.children("NAMESPACE")) {
    joined += joined.empty() ? "" : "/";
    joined += segment.attribute("NAME").value();
  }
  return joined;
}

TMessage::TMessage(const TCimXmlRequest& request) : host_(request.host.value_or("")) {
  CheckHeaders(request);
  ReadBody(request.body);
  CheckVersions(request);
  CheckElements(Root());
  CheckNames(request);
}

void TMessage::ReadBody(const std::string& text) {
  CheckXml(text);
  const pugi::xml_parse_result result = document_.load_buffer(
      text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single,
      pugi::encoding_utf8);
  if (!result) throw TRefusal(400, "request-not-well-formed", result.description());
}

// An unlike version may have other elements, so that it is looked at before them.
void TMessage::CheckVersions(const TCimXmlRequest& request) const {
  const pugi::xml_node root = Root();
  const bool isPart = root.attribute("CIMVERSION").empty() || root.attribute("DTDVERSION").empty();
  if (isPart || root.name() != std::string_view("CIM")) {
    throw TRefusal(400, "request-not-valid", "no CIM with its versions");
  }
  CheckVersion(GetCimVersion(), '2', "unsupported-cim-version");
  CheckVersion(GetDtdVersion(), '2', "unsupported-dtd-version");
  const pugi::xml_attribute version = Body().attribute("PROTOCOLVERSION");
  if (!version) throw TRefusal(400, "request-not-valid", "no MESSAGE with its version");
  if (request.protocolVersion && *request.protocolVersion != version.value()) {
    RefuseHeader("CIMProtocolVersion");
  }
  CheckVersion(version.value(), '1', "unsupported-protocol-version");
  if (!Body().child("MULTIREQ").empty()) RefuseHeader("CIMBatch");
}

// A method call's CIMObject goes on with keys, which clients write in ways of their own.
void TMessage::CheckNames(const TCimXmlRequest& request) const {
  CheckHeader("CIMMethod", request.method, GetName());
  if (!IsExtrinsic()) return CheckHeader("CIMObject", request.object, GetNamespace());
  std::string object = DecodePercent(request.object.value_or(""));
  const std::string expected = GetNamespace() + ':' + GetTargetClass();
  if (object.size() > expected.size() && object[expected.size()] == '.') {
    object.resize(expected.size());
  }
  if (!IsSame(object, expected)) RefuseHeader("CIMObject");
}

const char* TMessage::GetTargetClass() const {
  const pugi::xml_node instance = GetTarget().child("INSTANCENAME");
  return instance ? instance.attribute("CLASSNAME").value()
                  : GetTarget().child("CLASSNAME").attribute("NAME").value();
}

std::string TMessage::GetNamespace() const {
  const pugi::xml_node owner = IsExtrinsic() ? GetTarget() : GetCall();
  return JoinNamespace(owner.child("LOCALNAMESPACEPATH"));
}

}  // namespace NZELVYR20
