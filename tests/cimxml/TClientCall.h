#pragma once

#include <string>
#include <utility>
#include <vector>

#include "TCimXmlRequest.h"

namespace NZELVYR20 {

/// A call of an operation as two clients write it.
struct TClientCall {
  std::string operation;
  std::vector<std::pair<std::string, std::string>> parameters;  ///< names, and what stands in them
  std::string nameSpace = "root/cimv2";

  /// Reads `Operation name=value name=value`, words that hold no blanks ("_" stands for one). A
  /// value is a text, a class as `:T`, an instance as `@T.Id="a",N=1`, names as `{A,B}`, or XML as
  /// `<VALUE></VALUE>`; an operation in another namespace is `root/x:Operation`.
  static TClientCall Read(const std::string& line);

  /// As wbemcli does: blanks between elements, and CIMObject in codes.
  TCimXmlRequest ByShell() const;
  /// As Python's client does: short tags, and no CIMProtocolVersion.
  TCimXmlRequest ByPython() const;

 private:
  TCimXmlRequest Make(const std::string& id, const std::string& gap) const;
};

}  // namespace NZELVYR20
