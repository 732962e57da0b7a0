#pragma once

#include <pugixml.hpp>
#include <string>

#include "TCimXmlRequest.h"

namespace NZELVYR20 {

/// A request whose headers and body are right and fit together; what it calls is still to be seen.
class TMessage {
 public:
  /// Throws a TRefusal where the request is none.
  explicit TMessage(const TCimXmlRequest& request);

  /// The Host header, the server as its client calls it.
  const std::string& GetHost() const { return host_; }
  /// The attributes of CIM and MESSAGE, which the answer repeats.
  const char* GetCimVersion() const { return Root().attribute("CIMVERSION").value(); }
  const char* GetDtdVersion() const { return Root().attribute("DTDVERSION").value(); }
  const char* GetProtocolVersion() const { return Body().attribute("PROTOCOLVERSION").value(); }
  const char* GetId() const { return Body().attribute("ID").value(); }

  /// IMETHODCALL or METHODCALL.
  pugi::xml_node GetCall() const { return Body().first_element_by_path("SIMPLEREQ").first_child(); }
  /// Whether a method of a class is called, not an operation.
  bool IsExtrinsic() const { return GetCall().name()[0] == 'M'; }
  /// The operation or method, as the request spells it.
  const char* GetName() const { return GetCall().attribute("NAME").value(); }
  /// LOCALINSTANCEPATH or LOCALCLASSPATH of a method call.
  pugi::xml_node GetTarget() const { return GetCall().first_child(); }
  /// The name of the class in it.
  const char* GetTargetClass() const;
  /// Such as "root/cimv2".
  std::string GetNamespace() const;

 private:
  pugi::xml_node Root() const { return document_.document_element(); }
  pugi::xml_node Body() const { return Root().child("MESSAGE"); }

  void ReadBody(const std::string& text);
  void CheckVersions(const TCimXmlRequest& request) const;
  void CheckNames(const TCimXmlRequest& request) const;

  std::string host_;
  pugi::xml_document document_;
};

/// The name of a namespace whose segments stand in a LOCALNAMESPACEPATH.
std::string JoinNamespace(const pugi::xml_node& path);

}  // namespace NZELVYR20
