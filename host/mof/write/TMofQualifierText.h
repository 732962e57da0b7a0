#pragma once

#include <cstddef>
#include <string>

#include "ICIMNamedElement.h"
#include "ICIMQualifierDecl.h"

namespace NZELVYR20 {

/// Qualifiers and their declarations as MOF.
class TMofQualifierText {
 public:
  TMofQualifierText() = delete;

  /// Appends a whole declaration. Every flavor stands there in so many words; without a scope it
  /// has no such clause.
  static void AppendDeclaration(std::string& text, const ICIMQualifierDecl& declaration);

  /// Appends the element's qualifiers in brackets, one on a line, those first that say what kind of
  /// element it is; nothing where there are none. `withPropagated` says whether copies that the
  /// element inherited are among them; what makes a class an association or an indication always
  /// is.
  ///
  /// A value stands there as it is, also where its type is not that of the declaration; it reads
  /// back with the declared type, if at all. A flavor is named where it differs from that of the
  /// declaration, except for one that is no longer translatable: no word takes that away.
  static void AppendList(std::string& text, const ICIMNamedElement& element, bool withPropagated,
                         std::size_t margin);
};

}  // namespace NZELVYR20
