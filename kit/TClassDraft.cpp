#include "TClassDraft.h"

#include <ICIMMethodDecl.h>
#include <ICIMPropertyDecl.h>
#include <ICIMQualifier.h>

#include "FindOrNothing.h"
#include "NamedRefusal.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

bool IsDeclared(ICIMNamespace& nameSpace, const std::string& className) {
  return FindOrNothing([&] { return nameSpace.GetClass(className, {}); }) != nullptr;
}

/// `subject` says for what it is wanted.
boost::shared_ptr<ICIMClass> FindClass(ICIMNamespace& nameSpace, const std::string& name,
                                       const std::string& subject = {}) {
  return Named(subject + "class " + name, [&] { return nameSpace.GetClass(name, {}); });
}

}  // namespace

TCIMValue TextArray(const std::vector<std::string>& texts) {
  return TCIMValue::Array(TType::kString, std::vector<TCIMValue>(texts.begin(), texts.end()));
}

void DeclareQualifier(ICIMNamespace& nameSpace, const std::string& name,
                      const TCIMValue& defaultValue, ICIMQualifierDecl::EFlavor flavor) {
  Named("qualifier " + name, [&] {
    nameSpace.AllocateQualifierDecl(name, defaultValue, ICIMQualifierDecl::kAny, flavor, {})
        ->AddToNamespace({});
  });
}

void DeclareStandardQualifiers(ICIMNamespace& nameSpace) {
  const TCIMValue text = TCIMValue::Null(TType::kString);
  const TCIMValue texts = TCIMValue::Null(TType::kStringArray);
  const TNamedValues standard = {{"Key", false},     {"Abstract", false}, {"Association", false},
                                 {"Override", text}, {"Units", text},     {"ValueMap", texts},
                                 {"Values", texts}};
  for (const auto& [name, value] : standard) {
    if (!nameSpace.GetQualifierDecl(name, {})) DeclareQualifier(nameSpace, name, value);
  }
}

TClassDraft::TClassDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& name,
                         const std::string& superClass)
    : namespace_(Given(nameSpace, name, "namespace")), name_(name) {
  const std::string subject = "class " + name;
  // The repository would hand out the class that is there.
  if (Named(subject, [&] { return IsDeclared(*nameSpace, name); })) {
    throw TKitError(subject + ": declared already");
  }
  class_ = nameSpace->AllocateClass(name, FindClass(*nameSpace, superClass), {});
}

void TClassDraft::Attach(ICIMNamedElement& element, const std::string& subject,
                         const TNamedValues& qualifiers) const {
  const auto attach = [&](const std::string& name, const TCIMValue& value) {
    const std::string part = subject + ": qualifier " + name;
    const auto declaration = namespace_->GetQualifierDecl(name, {});
    if (!declaration) throw TKitError(part + ": not declared");
    Named(part,
          [&] { element.AllocateQualifier(declaration, value, {})->AddToClassOrProperty({}); });
  };
  for (const auto& [name, value] : qualifiers) attach(name, value);
}

TClassDraft& TClassDraft::Qualify(const std::string& qualifier, const TCIMValue& value) {
  Attach(*class_, "class " + name_, {{qualifier, value}});
  return *this;
}

TClassDraft& TClassDraft::AddProperty(const std::string& name, TType::ECIMType type,
                                      const TNamedValues& qualifiers) {
  return AddProperty(name, TCIMValue::Null(type), qualifiers);
}

TClassDraft& TClassDraft::AddProperty(const std::string& name, const TCIMValue& defaultValue,
                                      const TNamedValues& qualifiers) {
  const std::string subject = name_ + '.' + name;
  const auto declaration = class_->AllocatePropertyDecl(name, defaultValue, {});
  Attach(*declaration, subject, qualifiers);
  Named(subject, [&] { declaration->AddToClass({}); });
  // What may not be overridden stays without a word.
  if (class_->GetPropertyDecl(name, {}) != declaration) {
    throw TKitError(subject + ": the declaration that is there stays");
  }
  return *this;
}

TClassDraft& TClassDraft::AddReference(const std::string& name, const std::string& className,
                                       const TNamedValues& qualifiers) {
  const auto referenced = FindClass(*namespace_, className, name_ + '.' + name + ": ");
  return AddProperty(name, TCIMValue::NullReference(referenced), qualifiers);
}

TClassDraft& TClassDraft::AddMethod(const std::string& name, TType::ECIMType returnType,
                                    const TNamedValues& qualifiers) {
  const std::string subject = name_ + '.' + name + "()";
  const auto declaration = class_->AllocateMethodDecl(name, returnType, {});
  Attach(*declaration, subject, qualifiers);
  Named(subject, [&] { declaration->AddToClass({}); });
  return *this;
}

boost::shared_ptr<ICIMClass> TClassDraft::Add() {
  Named("class " + name_, [this] { class_->AddToNamespace({}); });
  return class_;
}

}  // namespace NZELVYR20
