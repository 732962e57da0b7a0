#pragma once

#include <optional>
#include <string>

namespace NZELVYR20 {

/// A request as HTTP brought it: what the protocol reads of it. A header that was not sent is
/// empty of value, one sent empty is an empty text.
struct TCimXmlRequest {
  std::optional<std::string> host;
  std::optional<std::string> contentType;
  std::optional<std::string> operation;        ///< CIMOperation
  std::optional<std::string> protocolVersion;  ///< CIMProtocolVersion
  std::optional<std::string> method;           ///< CIMMethod
  std::optional<std::string> object;           ///< CIMObject
  std::optional<std::string> batch;            ///< CIMBatch
  std::string body;
};

/// What goes back beside the body: CIM errors are successes of HTTP.
struct TCimXmlReply {
  int status = 200;      ///< of HTTP; the body is empty where it is not 200
  std::string cimError;  ///< the header CIMError; empty: none
  std::string detail;    ///< the header PGErrorDetail, percent-encoded; empty: none
};

}  // namespace NZELVYR20
