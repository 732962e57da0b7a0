#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "ICIMParameterDecl.h"
#include "TInmemDeclaration.h"

namespace NZELVYR20 {

class TInmemMethodDecl;

/// The declaration of one parameter of a method.
class TInmemParameterDecl : public TInmemDeclaration<ICIMParameterDecl, TInmemParameterDecl> {
 public:
  TInmemParameterDecl(const boost::shared_ptr<TInmemMethodDecl>& method, const std::string& name,
                      const TCIMValue::TCIMType& type);
  TInmemParameterDecl(const TInmemParameterDecl&) = delete;
  ~TInmemParameterDecl() override;

  /// The qualifier of that name; empty when there is none.
  boost::shared_ptr<TInmemQualifier> LookupQual(const std::string& name) const;

  /// Takes out the qualifier of that name, whichever object it is; status 15 when there is none.
  void RemoveQualifier(const boost::shared_ptr<ICIMQualifier>& qualifier);

  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext context) const override;
  void EnumerateQualifiers(const TCIMQualifierCallback& callback,
                           TCIMContext context) const override;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                TCIMContext context) const override;
  void Validate(TCIMContext context) override;
  void AddToMethod(TCIMContext context) override;
  boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(TCIMContext context) const override;
  TCIMValue::TCIMType GetType(TCIMContext context) const override;
  bool IsArray(TCIMContext context) const override;
  using TInmemDeclaration::operator=;
  TInmemParameterDecl& operator=(const TInmemParameterDecl&) { return *this; }

 private:
  const boost::weak_ptr<TInmemMethodDecl> method_;
  const TCIMValue value_;  ///< never assigned: what IsArray answers for
  const TCIMValue::TCIMType type_;
};

}  // namespace NZELVYR20
