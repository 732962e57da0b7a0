#include "WriteAnswer.h"

#include <string>

namespace NZELVYR20 {

void WriteAnswer(TXmlWriter& xml, const TMessage& message,
                 const std::function<void()>& writeContent) {
  const char* const response = message.IsExtrinsic() ? "METHODRESPONSE" : "IMETHODRESPONSE";
  const auto writeResponse = [&] {
    xml.WriteElement(response, {{"NAME", message.GetName()}}, writeContent);
  };
  const auto writeSimple = [&] { xml.WriteElement("SIMPLERSP", writeResponse); };
  const auto writeMessage = [&] {
    xml.WriteElement("MESSAGE",
                     {{"ID", message.GetId()}, {"PROTOCOLVERSION", message.GetProtocolVersion()}},
                     writeSimple);
  };
  xml.WriteDeclaration();
  xml.WriteElement(
      "CIM", {{"CIMVERSION", message.GetCimVersion()}, {"DTDVERSION", message.GetDtdVersion()}},
      writeMessage);
  xml.Flush();
}

void WriteFailure(TXmlWriter& xml, const TMessage& message, const TCimFailure& failure) {
  const std::string code = std::to_string(static_cast<int>(failure.GetStatus()));
  WriteAnswer(xml, message, [&] {
    xml.WriteEmpty("ERROR", {{"CODE", code}, {"DESCRIPTION", failure.what()}});
  });
}

}  // namespace NZELVYR20
