#pragma once

#include "ICIMInstance.h"
#include "TElementForm.h"
#include "TPropertyWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes instances.
class TInstanceWriter {
 public:
  /// Both outlive the object.
  TInstanceWriter(TXmlWriter& xml, TPropertyWriter& properties);

  /// INSTANCE, without qualifiers
  void Write(ICIMInstance& instance, const TElementForm& form);

 private:
  TXmlWriter& xml_;
  TPropertyWriter& properties_;
};

}  // namespace NZELVYR20
