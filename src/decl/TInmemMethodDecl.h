#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "ICIMMethodDecl.h"
#include "TInmemFeatureDecl.h"
#include "TNameTable.h"

namespace NZELVYR20 {

class TInmemClass;
class TInmemParameterDecl;

/// The declaration of a method with its parameters.
class TInmemMethodDecl : public TInmemFeatureDecl<ICIMMethodDecl, TInmemMethodDecl> {
 public:
  TInmemMethodDecl(const boost::shared_ptr<TInmemClass>& owner, const std::string& name,
                   const TCIMValue::TCIMType& returnType);
  TInmemMethodDecl(const TInmemMethodDecl&) = delete;
  ~TInmemMethodDecl() override;

  /// Status 25, then 16 (logged at level 3) for a name that is taken; a failure changes nothing.
  void AddParameterDecl(const boost::shared_ptr<TInmemParameterDecl>& parameter);
  /// Takes out the parameter of that name, whichever object it is; status 15 when there is none.
  void RemoveParameterDecl(const boost::shared_ptr<TInmemParameterDecl>& parameter);

  /// Lets go of the classes that the qualifiers, its own and those of its parameters, hold.
  void ReleaseClasses() noexcept;

  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext context) const override;
  void EnumerateQualifiers(const TCIMQualifierCallback& callback,
                           TCIMContext context) const override;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                TCIMContext context) const override;
  void Validate(TCIMContext context) override;
  void AddToClass(TCIMContext context) override;
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) const override;
  TCIMValue::TCIMType GetReturnType(TCIMContext context) const override;
  boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string& name,
                                                             TCIMValue::TCIMType type,
                                                             TCIMContext context) override;
  boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string& name,
                                                        TCIMContext context) const override;
  void EnumerateParameterDecls(TCIMParameterDeclCallback& callback, TCIMContext context) override;
  using TInmemFeatureDecl::operator=;
  TInmemMethodDecl& operator=(const TInmemMethodDecl&) { return *this; }

 private:
  TNameTable<TInmemParameterDecl> parameters_;
  const TCIMValue::TCIMType returnType_;
  const boost::weak_ptr<TInmemClass> class_;
};

}  // namespace NZELVYR20
