#include "TValueWriter.h"

#include <vector>

#include "ScalarText.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

TValueWriter::TValueWriter(TXmlWriter& xml, TPathWriter& paths) : xml_(xml), paths_(paths) {}

void TValueWriter::Write(const TCIMValue& value) {
  if (value.IsNull()) return;
  if (value.IsReference()) {
    paths_.WriteReference(static_cast<TCIMReference>(value));
  } else if (value.IsArray()) {
    xml_.WriteElement("VALUE.ARRAY", [&] {
      for (const auto& element : static_cast<const std::vector<TCIMValue>&>(value)) {
        WriteElement(element);
      }
    });
  } else {
    WriteElement(value);
  }
}

void TValueWriter::WriteElement(const TCIMValue& value) {
  if (value.IsNull()) {
    xml_.WriteEmpty("VALUE.NULL");
  } else {
    xml_.WriteTextElement("VALUE", ScalarText(value));
  }
}

}  // namespace NZELVYR20
