#include "TInstanceWriter.h"

#include "ICIMClass.h"
#include "ICIMProperty.h"
#include "ListElements.h"

namespace NZELVYR20 {

TInstanceWriter::TInstanceWriter(TXmlWriter& xml, TPropertyWriter& properties)
    : xml_(xml), properties_(properties) {}

void TInstanceWriter::Write(ICIMInstance& instance, const TElementForm& form) {
  const boost::shared_ptr<ICIMClass> cimClass = instance.GetClass({});
  xml_.WriteElement("INSTANCE", {{"CLASSNAME", cimClass->GetName({})}}, [&] {
    for (const auto& property : ListProperties(instance)) {
      const auto declaration = property->GetDeclaration({});
      if (!declaration || !form.IsListed(declaration->GetName({}))) continue;
      properties_.WriteValue(*declaration, property->GetValue({}), form);
    }
  });
}

}  // namespace NZELVYR20
