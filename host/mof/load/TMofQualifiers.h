#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ICIMNamedElement.h"
#include "ICIMNamespace.h"
#include "ICIMQualifierDecl.h"
#include "MofSyntax.h"
#include "TMofDiagnostics.h"
#include "TMofSummary.h"
#include "TMofValues.h"

namespace NZELVYR20 {

/// Qualifiers: their declarations, and what stands on elements.
class TMofQualifiers {
 public:
  TMofQualifiers(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
                 TMofSummary& summary);

  /// Enters declarations. What the namespace has already stays as it is.
  void Declare(const std::vector<TMofQualifierDeclaration>& declarations);

  /// Attaches qualifiers to an element that is not entered yet, after those that `overridden`
  /// passes down, where there is one. What nobody declared is a warning, and is declared on the
  /// spot in the type of its value; a later value that does not suit is a warning and left out, as
  /// is a second value on the same element. A value that may not replace an inherited one is a
  /// note. Throws TMofFault for a value that does not suit a declaration of the text.
  void Attach(ICIMNamedElement& element, const std::vector<TMofQualifier>& qualifiers,
              const ICIMNamedElement* overridden);

  /// Whether a qualifier of that name, which is given folded, stands among them.
  static bool Has(const std::vector<TMofQualifier>& qualifiers, const std::string& name);

  /// Forgets the places of declarations, before their sources go.
  void Clear() { places_.clear(); }

 private:
  using TDeclarationPtr = boost::shared_ptr<ICIMQualifierDecl>;

  void DeclareOne(const TMofQualifierDeclaration& declaration);
  TDeclarationPtr DeclareUndeclared(const TMofQualifier& qualifier);
  TDeclarationPtr FindDeclaration(const TMofQualifier& qualifier);
  /// `before` is the one of that name that the element has already, if any.
  void AttachOne(ICIMNamedElement& element, const TMofQualifier& qualifier,
                 const TMofQualifier* before);
  void AttachValue(ICIMNamedElement& element, const TMofQualifier& qualifier,
                   const TDeclarationPtr& declaration, const TCIMValue& value);

  boost::shared_ptr<ICIMNamespace> namespace_;
  TMofDiagnostics& diagnostics_;
  TMofSummary& summary_;
  TMofValues values_;
  std::map<TDeclarationPtr, TMofPlace> places_;  ///< of the declarations of this load
  std::set<TDeclarationPtr> guessed_;            ///< made of values
};

}  // namespace NZELVYR20
