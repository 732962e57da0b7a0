#pragma once

#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "TElementForm.h"
#include "TValueWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes instances.
class TInstanceWriter {
 public:
  /// Both outlive the object.
  TInstanceWriter(TXmlWriter& xml, TValueWriter& values);

  /// INSTANCE, without qualifiers
  void Write(ICIMInstance& instance, const TElementForm& form);

 private:
  void WriteProperty(const ICIMProperty& property, const TElementForm& form);

  TXmlWriter& xml_;
  TValueWriter& values_;
};

}  // namespace NZELVYR20
