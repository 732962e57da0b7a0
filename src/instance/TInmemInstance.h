#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMPropertyDecl.h"
#include "TDeclaredProperties.h"
#include "TInmemProperty.h"

namespace NZELVYR20 {

/// An instance of a TInmemClass: its class, which it holds, and one property for each declaration
/// that the class had when the instance was made. It keeps those declarations alive for its
/// properties.
///
/// TInmemInstance.cpp holds its life and properties, TInmemInstanceTraversal.cpp the walk along
/// associations.
class TInmemInstance : public ICIMInstance, public boost::enable_shared_from_this<TInmemInstance> {
 public:
  /// What Validate looks at, as bits.
  static constexpr int kValidateKeys = 1;
  static constexpr int kValidateReferences = 2;
  static constexpr int kValidateAll = kValidateKeys | kValidateReferences;

  /// Of a TInmemClass; any other class is a programming error.
  TInmemInstance(const boost::shared_ptr<ICIMClass>& cimClass, int validationFlags);
  TInmemInstance(const TInmemInstance&) = delete;
  ~TInmemInstance() override;

  /// True, or status 18 (logged at level 0) when the key has no value.
  bool ValidateKeyNonNull(const std::string* keyName) const;

  void Validate(TCIMContext context) const override;
  void AddToNamespace(TCIMContext context) override;
  void ModifyInstance(boost::shared_ptr<ICIMInstance> instance, TCIMContext context) override;
  void Delete(TCIMContext context) override;
  TCIMReference GetReference(TCIMContext context) const override;
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) const override;
  void EnumerateAssociatedInstances(const TCIMInstanceCallback& callback,
                                    const std::string& assocClass, const std::string& resultClass,
                                    const std::string& role, const std::string& resultRole,
                                    TCIMContext context) override;
  void EnumerateAssociationInstances(const TCIMInstanceCallback& callback,
                                     const std::string& resultClass, const std::string& role,
                                     TCIMContext context) override;
  boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                              TCIMContext context) const override;
  void SetPropertyValue(const std::string& name, const TCIMValue& value,
                        TCIMContext context) override;
  void EnumerateProperties(const TCIMPropertyCallback& callback, TCIMContext context) override;
  TCIMValue InvokeMethod(const std::string& name, TCIMContext& parameters,
                         TCIMContext context) override;
  bool operator==(ICIMInstance& other) const override;
  bool operator<(ICIMInstance& other) const override;
  ICIMInstance& operator=(const ICIMInstance& other) override;
  TInmemInstance& operator=(const TInmemInstance& other);

  // The steps of the two walks, in the form of the enumerations that they serve. Each returns
  // whether its walk goes on.

  /// Looks for instances of the association class that refer to this one.
  bool ExamineCandidateClass(const TCIMInstanceCallback& callback, const std::string& role,
                             const boost::shared_ptr<ICIMClass>& assocClass);

  /// Calls back with the association instance if one of its references points here; always true.
  bool ExamineCandidateClassInstance(const TCIMInstanceCallback& callback,
                                     const boost::shared_ptr<ICIMInstance>& assocInstance);

  /// The same, but looks at the property named by the role only; always true.
  bool ExamineCandidateClassInstanceWithRole(const TCIMInstanceCallback& callback,
                                             const std::string& role,
                                             const boost::shared_ptr<ICIMInstance>& assocInstance);

  /// Calls back with the instance at the first far end that qualifies and returns what that
  /// returns; true when there is none.
  bool ExamineCandidate(const TCIMInstanceCallback& callback,
                        const boost::shared_ptr<ICIMClass>& resultClass, const std::string& role,
                        const boost::shared_ptr<TInmemInstance>& assocInstance);

  /// Calls back with the instance at the end named by the result role if that qualifies; always
  /// true.
  bool ExamineCandidateWithResultRole(const TCIMInstanceCallback& callback,
                                      const boost::shared_ptr<ICIMClass>& resultClass,
                                      const std::string& resultRole,
                                      const boost::shared_ptr<TInmemInstance>& assocInstance);

 private:
  /// Adds the property of the next declaration; always true, as an enumeration's callback that
  /// goes on. A class has no two declarations of one normalized name.
  bool InsertProp(const boost::shared_ptr<ICIMPropertyDecl>& declaration);
  void StampCollectionTime();
  boost::shared_ptr<TInmemProperty> FindProperty(const std::string& name) const;
  boost::shared_ptr<ICIMProperty> DeriveProperty(const std::string& declaredName,
                                                 const TCIMValue& defaultValue) const;
  void ValidateReferences() const;
  bool IsThis(const TCIMValue& reference) const;
  bool IsOwnEnd(const std::string& propertyKey, const TCIMValue& reference,
                const std::string& roleKey) const;

  const int validationFlags_;
  const boost::shared_ptr<ICIMClass> class_;
  const boost::shared_ptr<const TDeclaredProperties> declared_;
  std::vector<boost::shared_ptr<TInmemProperty>> properties_;  ///< one per entry of declared_
};

}  // namespace NZELVYR20
