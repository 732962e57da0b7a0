#pragma once

#include <functional>
#include <string>
#include <utility>

#include "TModelElements.h"

namespace NZELVYR20 {

using TAsk = std::function<TPtr<ICIMQualifier>(const std::string& qualifier)>;

/// A declaration of another implementation, and what it answers when asked for a qualifier.
template <class TModelDecl>
struct TForeign : TModelDecl {
  using TModelDecl::operator=;
  TForeign(const std::string& named, const TCIMValue& of, TAsk answer) : ask(std::move(answer)) {
    this->name = named;
    this->value = of;
  }
  TPtr<ICIMQualifier> GetQualifier(const std::string& asked, TAny) const override {
    return ask(asked);
  }
  TPtr<ICIMQualifier> GetQualifier(const std::string&, bool&, TAny) const override {
    throw TVYRException(1);
  }
  const TAsk ask;
};

using TForeignProperty = TForeign<TModelPropertyDecl>;
using TForeignMethod = TForeign<TModelMethodDecl>;

}  // namespace NZELVYR20
