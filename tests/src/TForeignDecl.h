#pragma once

#include <functional>
#include <string>
#include <utility>

#include "ICIMMethodDecl.h"
#include "ICIMPropertyDecl.h"
#include "TInmemDeclaration.h"
#include "TVYRException.h"

namespace NZELVYR20 {

using TAsk = std::function<boost::shared_ptr<ICIMQualifier>(const std::string& qualifier)>;

/// A declaration of another implementation, and what it answers when asked for a qualifier.
template <class TInterface, class TSelf>
struct TForeignDecl : TInmemDeclaration<TInterface, TSelf> {
  TForeignDecl(const std::string& name, const TCIMValue& ofValue, TAsk answer)
      : TInmemDeclaration<TInterface, TSelf>(name), value(ofValue), ask(std::move(answer)) {}

  using TInmemDeclaration<TInterface, TSelf>::operator=;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext) const override {
    return ask(name);
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string&, bool&,
                                                TCIMContext) const override {
    throw TVYRException(1);
  }
  void EnumerateQualifiers(const TCIMQualifierCallback&, TCIMContext) const override {}
  void Validate(TCIMContext) override {}
  void AddToClass(TCIMContext) override {}
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext) const override { return {}; }

  TCIMValue value;
  TAsk ask;
};

struct TForeignProperty : TForeignDecl<ICIMPropertyDecl, TForeignProperty> {
  using TForeignDecl::TForeignDecl;
  using TForeignDecl::operator=;
  TForeignProperty& operator=(const TForeignProperty&) { return *this; }
  void RemoveFromClass(TCIMContext) override {}
  TCIMValue::TCIMType GetType(TCIMContext) const override { return value.GetType(); }
  bool IsArray(TCIMContext) const override { return value.IsArray(); }
  const TCIMValue& GetDefaultValue(TCIMContext) const override { return value; }
  void SetDefaultValue(const TCIMValue&, TCIMContext) override {}
};

struct TForeignMethod : TForeignDecl<ICIMMethodDecl, TForeignMethod> {
  using TForeignDecl::TForeignDecl;
  using TForeignDecl::operator=;
  TForeignMethod& operator=(const TForeignMethod&) { return *this; }
  TCIMValue::TCIMType GetReturnType(TCIMContext) const override { return value.GetType(); }
  boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string&,
                                                             TCIMValue::TCIMType,
                                                             TCIMContext) override {
    return {};
  }
  boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string&,
                                                        TCIMContext) const override {
    return {};
  }
  void EnumerateParameterDecls(TCIMParameterDeclCallback&, TCIMContext) override {}
};

}  // namespace NZELVYR20
