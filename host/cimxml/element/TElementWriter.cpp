#include "TElementWriter.h"

namespace NZELVYR20 {

TElementWriter::TElementWriter(TXmlWriter& xml, const TPathPlace& place)
    : xml_(xml),
      paths_(xml, place),
      values_(xml, paths_),
      qualifiers_(xml, values_),
      properties_(xml, values_, qualifiers_),
      classes_(xml, properties_, qualifiers_),
      instances_(xml, properties_) {}

void TElementWriter::WriteClass(const ICIMClass& cimClass, const TElementForm& form) {
  classes_.Write(cimClass, form);
}

void TElementWriter::WriteClassName(const ICIMClass& cimClass) {
  paths_.WriteClassName(cimClass.GetName({}));
}

void TElementWriter::WriteQualifierDecl(const ICIMQualifierDecl& declaration) {
  qualifiers_.WriteDeclaration(declaration);
}

void TElementWriter::WriteValue(const TCIMValue& value) { values_.Write(value); }

void TElementWriter::WriteInstance(ICIMInstance& instance, const TElementForm& form) {
  instances_.Write(instance, form);
}

void TElementWriter::WriteInstanceName(ICIMInstance& instance) {
  paths_.WriteInstanceName(instance.GetReference({}));
}

void TElementWriter::WriteInstancePath(ICIMInstance& instance) {
  paths_.WriteInstancePath(instance.GetReference({}));
}

void TElementWriter::WriteNamedInstance(ICIMInstance& instance, const TElementForm& form) {
  xml_.WriteElement("VALUE.NAMEDINSTANCE", [&] {
    WriteInstanceName(instance);
    WriteInstance(instance, form);
  });
}

void TElementWriter::WriteInstanceWithPath(ICIMInstance& instance, const TElementForm& form) {
  xml_.WriteElement("VALUE.INSTANCEWITHPATH", [&] {
    WriteInstancePath(instance);
    WriteInstance(instance, form);
  });
}

void TElementWriter::WriteObjectPath(ICIMInstance& instance) {
  xml_.WriteElement("OBJECTPATH", [&] { WriteInstancePath(instance); });
}

void TElementWriter::WriteObjectPath(const ICIMClass& cimClass) {
  xml_.WriteElement("OBJECTPATH", [&] { paths_.WriteClassPath(cimClass.GetName({})); });
}

void TElementWriter::WriteObjectWithPath(ICIMInstance& instance, const TElementForm& form) {
  xml_.WriteElement("VALUE.OBJECTWITHPATH", [&] {
    WriteInstancePath(instance);
    WriteInstance(instance, form);
  });
}

void TElementWriter::WriteObjectWithPath(const ICIMClass& cimClass, const TElementForm& form) {
  xml_.WriteElement("VALUE.OBJECTWITHPATH", [&] {
    paths_.WriteClassPath(cimClass.GetName({}));
    WriteClass(cimClass, form);
  });
}

}  // namespace NZELVYR20
