#pragma once

#include "TCIMValue.h"
#include "TPathWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes values.
class TValueWriter {
 public:
  /// `xml` and `paths` outlive the object.
  TValueWriter(TXmlWriter& xml, TPathWriter& paths);

  /// VALUE, VALUE.ARRAY or VALUE.REFERENCE; nothing for null. An element that is null is
  /// VALUE.NULL, which is all that the protocol has for it, though clients fail on it. References
  /// in arrays, which properties of the protocol do not have, are the texts of their paths.
  void Write(const TCIMValue& value);

 private:
  void WriteElement(const TCIMValue& value);

  TXmlWriter& xml_;
  TPathWriter& paths_;
};

}  // namespace NZELVYR20
