#pragma once

#include <ICIMClass.h>
#include <ICIMNamedElement.h>
#include <ICIMNamespace.h>
#include <ICIMQualifierDecl.h>
#include <TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

namespace NZELVYR20 {

/// Qualifiers with their values.
using TNamedValues = std::vector<std::pair<std::string, TCIMValue>>;

/// An array of texts, as "ValueMap" and "Values" are.
TCIMValue TextArray(const std::vector<std::string>& texts);

/// Declares a qualifier for elements of any kind; the default gives its type. Throws TKitError
/// where the namespace refuses it.
void DeclareQualifier(ICIMNamespace& nameSpace, const std::string& name,
                      const TCIMValue& defaultValue,
                      ICIMQualifierDecl::EFlavor flavor = ICIMQualifierDecl::kOverridable |
                                                          ICIMQualifierDecl::kToSubclass);

/// Those that the repository itself reads: "Key", "Abstract", "Association", "Override", and what
/// renders values, "Units", "ValueMap" and "Values". Those that are declared stay as they are.
void DeclareStandardQualifiers(ICIMNamespace& nameSpace);

/// A class that is being declared, part by part, and then added. Whatever is refused is a TKitError
/// that names the part; the class can then not be added any more.
class TClassDraft {
 public:
  /// Below that superclass, or directly below the root class. A namespace has to be there.
  TClassDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& name,
              const std::string& superClass = {});

  /// Of the class itself. "Association" has to be there before references are.
  TClassDraft& Qualify(const std::string& qualifier, const TCIMValue& value);

  /// Without a default.
  TClassDraft& AddProperty(const std::string& name, TCIMValue::TCIMType::ECIMType type,
                           const TNamedValues& qualifiers = {});
  /// The default gives the type.
  TClassDraft& AddProperty(const std::string& name, const TCIMValue& defaultValue,
                           const TNamedValues& qualifiers = {});
  /// To instances of that class and its subclasses.
  TClassDraft& AddReference(const std::string& name, const std::string& className,
                            const TNamedValues& qualifiers = {});
  /// Without parameters: those are added through the contract.
  TClassDraft& AddMethod(const std::string& name, TCIMValue::TCIMType::ECIMType returnType,
                         const TNamedValues& qualifiers = {});

  /// Adds the class to its namespace.
  boost::shared_ptr<ICIMClass> Add();

 private:
  void Attach(ICIMNamedElement& element, const std::string& subject,
              const TNamedValues& qualifiers) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  std::string name_;
  boost::shared_ptr<ICIMClass> class_;
};

}  // namespace NZELVYR20
