#pragma once

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "ICIMClass.h"
#include "ICIMPropertyDecl.h"
#include "TElementForm.h"
#include "TQualifierWriter.h"
#include "TValueWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Whether a class has declared it itself.
template <class TDeclaration>
bool IsOwn(const TDeclaration& declaration, const ICIMClass& cimClass) {
  return declaration.GetClass({}).get() == &cimClass;
}

/// The name of the class where a declaration comes from, where a form has that and it is there.
template <class TDeclaration>
std::optional<std::string> OriginOf(const TDeclaration& declaration, const TElementForm& form) {
  if (!form.classOrigin) return std::nullopt;
  const boost::shared_ptr<ICIMClass> origin = declaration.GetClass({});
  return origin ? std::optional<std::string>(origin->GetName({})) : std::nullopt;
}

/// "true" where a class has a declaration from a superclass.
template <class TDeclaration>
std::optional<std::string_view> PropagatedWord(const TDeclaration& declaration,
                                               const ICIMClass& cimClass) {
  if (IsOwn(declaration, cimClass)) return std::nullopt;
  return "true";
}

/// Writes properties of classes and of instances.
class TPropertyWriter {
 public:
  /// All three outlive the object.
  TPropertyWriter(TXmlWriter& xml, TValueWriter& values, TQualifierWriter& qualifiers);

  /// PROPERTY, PROPERTY.ARRAY or PROPERTY.REFERENCE of a class, with the default for a value.
  void WriteDeclared(const ICIMPropertyDecl& property, const ICIMClass& cimClass,
                     const TElementForm& form);
  /// The same of an instance.
  void WriteValue(const ICIMPropertyDecl& property, const TCIMValue& value,
                  const TElementForm& form);

 private:
  template <class TWriteContent>
  void Write(const ICIMPropertyDecl& property, std::optional<std::string_view> propagated,
             const TElementForm& form, const TWriteContent& writeContent);

  TXmlWriter& xml_;
  TValueWriter& values_;
  TQualifierWriter& qualifiers_;
};

}  // namespace NZELVYR20
