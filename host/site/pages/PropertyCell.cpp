#include "PropertyCell.h"

#include <boost/shared_ptr.hpp>

#include "TCIMReference.h"
#include "TPrinter.h"
#include "TVYRException.h"
#include "Urls.h"

namespace NZELVYR20 {
namespace {

boost::shared_ptr<ICIMInstance> FindTarget(const TCIMValue& value) {
  if (!value.IsReference() || value.IsNull()) return {};
  try {
    return boost::dynamic_pointer_cast<ICIMInstance>(
        static_cast<TCIMReference>(value).GetCIMElement(false));
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
    return {};
  }
}

}  // namespace

void AddPropertyValue(THtml& html, const ICIMProperty& property, TInstanceNames& names,
                      std::size_t width) {
  if (const auto target = FindTarget(property.GetValue({}))) {
    html.AddLink(InstanceUrl(*target), names.NameOf(*target));
    return;
  }
  const std::string text = TPrinter::PropertyText(property);
  html.Text(width == 0 ? text : CutName(text, width));
}

}  // namespace NZELVYR20
