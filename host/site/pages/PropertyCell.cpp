#include "PropertyCell.h"

#include "FindTarget.h"
#include "TPrinter.h"
#include "Urls.h"

namespace NZELVYR20 {

void AddPropertyValue(THtml& html, const ICIMProperty& property, TInstanceNames& names,
                      std::size_t width) {
  const TCIMValue& value = property.GetValue({});
  if (value.IsReference() && !value.IsNull()) {
    if (const auto target = FindTarget(static_cast<TCIMReference>(value))) {
      return html.AddLink(InstanceUrl(*target), names.NameOf(*target));
    }
  }
  const std::string text = TPrinter::PropertyText(property);
  html.Text(width == 0 ? text : CutName(text, width));
}

}  // namespace NZELVYR20
