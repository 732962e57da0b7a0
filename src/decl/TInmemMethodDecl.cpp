#include "TInmemMethodDecl.h"

#include <boost/make_shared.hpp>

#include "Failures.h"
#include "NormalizedNames.h"
#include "TInmemClass.h"
#include "TInmemParameterDecl.h"

namespace NZELVYR20 {

TInmemMethodDecl::TInmemMethodDecl(const boost::shared_ptr<TInmemClass>& owner,
                                   const std::string& name, const TCIMValue::TCIMType& returnType)
    : TInmemFeatureDecl(name), returnType_(returnType), class_(owner) {}

TInmemMethodDecl::~TInmemMethodDecl() = default;

void TInmemMethodDecl::AddParameterDecl(const boost::shared_ptr<TInmemParameterDecl>& parameter) {
  const std::string& parameterName = parameter->GetName({});
  if (parameters_.Insert(NormalizeName(parameterName), parameter)) return;
  // It says "property", and hosts look for these very words.
  LogDefinitionFailure("Inmem: Attempt to add property " + parameterName + " to method " + name_ +
                       ": already exists");
  throw Failure::AlreadyDefined();
}

void TInmemMethodDecl::RemoveParameterDecl(
    const boost::shared_ptr<TInmemParameterDecl>& parameter) {
  const std::string key = NormalizeName(parameter->GetName({}));
  if (!parameters_.Erase(key)) throw Failure::NotFound();
}

void TInmemMethodDecl::ReleaseClasses() noexcept {
  TInmemFeatureDecl::ReleaseClasses();
  parameters_.ForEach(
      [](const std::string&, const boost::shared_ptr<TInmemParameterDecl>& parameter) {
        parameter->ReleaseClasses();
      });
}

boost::shared_ptr<ICIMQualifier> TInmemMethodDecl::GetQualifier(const std::string& name,
                                                                TCIMContext) const {
  auto qualifier = qualifiers_.Find(name);
  if (!qualifier) throw Failure::NotFound();
  return qualifier;
}

void TInmemMethodDecl::EnumerateQualifiers(const TCIMQualifierCallback& callback,
                                           TCIMContext) const {
  qualifiers_.Enumerate(shared_from_this(), kVisitsAllAndPasses, callback);
}

boost::shared_ptr<ICIMQualifier> TInmemMethodDecl::GetQualifier(const std::string&, bool&,
                                                                TCIMContext) const {
  throw Failure::NotSupported();
}

void TInmemMethodDecl::Validate(TCIMContext) {}

void TInmemMethodDecl::AddToClass(TCIMContext) { class_.lock()->AddMethodDecl(shared_from_this()); }

boost::shared_ptr<ICIMClass> TInmemMethodDecl::GetClass(TCIMContext) const { return class_.lock(); }

TCIMValue::TCIMType TInmemMethodDecl::GetReturnType(TCIMContext) const { return returnType_; }

boost::shared_ptr<ICIMParameterDecl> TInmemMethodDecl::AllocateParameterDecl(
    const std::string& name, TCIMValue::TCIMType type, TCIMContext) {
  return boost::make_shared<TInmemParameterDecl>(shared_from_this(), name, type);
}

boost::shared_ptr<ICIMParameterDecl> TInmemMethodDecl::GetParameterDecl(const std::string& name,
                                                                        TCIMContext) const {
  auto parameter = parameters_.Find(NormalizeName(name));
  if (!parameter) throw Failure::NotFound();
  return parameter;
}

void TInmemMethodDecl::EnumerateParameterDecls(TCIMParameterDeclCallback& callback, TCIMContext) {
  Enumerate(shared_from_this(), parameters_, kVisitsAllAndPasses, callback);
}

}  // namespace NZELVYR20
