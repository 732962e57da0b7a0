#include "TClientCall.h"

#include <boost/algorithm/string.hpp>
#include <sstream>

namespace NZELVYR20 {
namespace {

std::vector<std::string> Split(const std::string& text, const char* separators) {
  std::vector<std::string> parts;
  boost::split(parts, text, boost::is_any_of(separators));
  return parts;
}

std::string Element(const std::string& name, const std::string& content) {
  return '<' + name + '>' + content + "</" + name + '>';
}

std::string InstanceXml(const std::string& path) {
  const std::size_t dot = path.find('.');
  std::string xml = "<INSTANCENAME CLASSNAME=\"" + path.substr(0, dot) + "\">";
  if (dot == std::string::npos) return xml + "</INSTANCENAME>";
  for (const std::string& key : Split(path.substr(dot + 1), ",")) {
    const std::size_t equals = key.find('=');
    const bool isString = key[equals + 1] == '"';
    xml += "<KEYBINDING NAME=\"" + key.substr(0, equals) + "\"><KEYVALUE VALUETYPE=\"" +
           (isString ? "string" : "numeric") + "\">" +
           boost::trim_copy_if(key.substr(equals + 1), boost::is_any_of("\"")) +
           "</KEYVALUE></KEYBINDING>";
  }
  return xml + "</INSTANCENAME>";
}

std::string ValueXml(const std::string& value) {
  switch (value.empty() ? ' ' : value.front()) {
    case '<':
      return value;
    case ':':
      return "<CLASSNAME NAME=\"" + value.substr(1) + "\"/>";
    case '@':
      return InstanceXml(value.substr(1));
    case '{': {
      std::string names;
      for (const std::string& name : Split(value.substr(1, value.size() - 2), ",")) {
        if (!name.empty()) names += Element("VALUE", name);
      }
      return Element("VALUE.ARRAY", names);
    }
    default:
      return Element("VALUE", value);
  }
}

}  // namespace

TClientCall TClientCall::Read(const std::string& line) {
  TClientCall call;
  std::istringstream words(line);
  std::string word;
  words >> word;
  const std::size_t colon = word.find(':');
  if (colon != std::string::npos) call.nameSpace = word.substr(0, colon);
  call.operation = word.substr(colon + 1);
  while (words >> word) {
    std::string value = ValueXml(word.substr(word.find('=') + 1));
    boost::replace_all(value, "_", " ");
    call.parameters.emplace_back(word.substr(0, word.find('=')), value);
  }
  return call;
}

TCimXmlRequest TClientCall::Make(const std::string& id, const std::string& gap) const {
  TCimXmlRequest request;
  request.host = "localhost:5988";
  request.contentType = "application/xml; charset=\"utf-8\"";
  request.operation = "MethodCall";
  request.method = operation;
  request.object = nameSpace;
  std::string space;
  for (const std::string& part : Split(nameSpace, "/")) {
    space += "<NAMESPACE NAME=\"" + part + "\"/>";
  }
  std::string content = Element("LOCALNAMESPACEPATH", gap + space + gap);
  for (const auto& [name, value] : parameters) {
    content.append(gap).append("<IPARAMVALUE NAME=\"").append(name).append("\">");
    content.append(gap).append(value).append(gap).append("</IPARAMVALUE>");
  }
  request.body =
      "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
      "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">" +
      gap + "<MESSAGE ID=\"" + id + "\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>" + gap +
      "<IMETHODCALL NAME=\"" + operation + "\">" + content + "</IMETHODCALL></SIMPLEREQ>" + gap +
      "</MESSAGE></CIM>";
  return request;
}

TCimXmlRequest TClientCall::ByShell() const {
  TCimXmlRequest request = Make("4711", "\n");
  request.protocolVersion = "1.0";
  boost::replace_all(*request.object, "/", "%2F");
  boost::replace_all(request.body, "\"/>", "\" />");
  return request;
}

TCimXmlRequest TClientCall::ByPython() const { return Make("1001", ""); }

}  // namespace NZELVYR20
