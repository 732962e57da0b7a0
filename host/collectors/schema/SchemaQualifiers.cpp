#include "TSchemaRows.h"

namespace NZELVYR20 {

std::vector<TQualifierRow> GetQualifierRows() {
  using D = ICIMQualifierDecl;
  using T = TCIMValue::TCIMType;
  const TCIMValue noText = TCIMValue::Null(T::kString);
  const TCIMValue noTexts = TCIMValue::Null(T::kStringArray);
  const D::EFlavor passesOn = D::kOverridable | D::kToSubclass;
  const D::EFlavor fixed = D::kToSubclass;
  const D::EFlavor restricted = D::kOverridable;
  const D::EScope properties = D::kProperty | D::kReference;
  const D::EScope values = D::kProperty | D::kMethod | D::kParameter;
  return {
      {"Abstract", false, D::kClass | D::kAssociation | D::kIndication, restricted},
      {"Aggregate", false, D::kReference, fixed},
      {"Aggregation", false, D::kAssociation, fixed},
      {"Association", false, D::kAssociation, fixed},
      {"Description", noText, D::kAny, passesOn | D::kTranslatable},
      {"In", true, D::kParameter, fixed},
      {"Key", false, properties, fixed},
      {"Out", false, D::kParameter, fixed},
      {"Override", noText, properties | D::kMethod, restricted},
      {"Propagated", noText, properties, fixed},
      {"Units", noText, values, passesOn | D::kTranslatable},
      {"ValueMap", noTexts, values, passesOn},
      {"Values", noTexts, values, passesOn | D::kTranslatable},

      // These steer how values are shown: units in short form, the base of numbers, the largest
      // prefix of a unit ("Kilo" to "Tera"), and what stands for null.
      {"AbbreviateUnits", false, values, passesOn},
      {"Base", static_cast<unsigned char>(10), values, passesOn},
      {"DisplayFixedUnits", noText, values, passesOn},
      {"NullDisplay", noText, values, passesOn | D::kTranslatable},
  };
}

}  // namespace NZELVYR20
