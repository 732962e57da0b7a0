#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "ICIMInstance.h"
#include "ICIMPropertyDecl.h"
#include "TDeclaredProperties.h"
#include "TInmemProperties.h"
#include "TReferences.h"

namespace NZELVYR20 {

class TPropertyHolder;
class TReferrerWalk;

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

  /// The declarations that the instance was made with.
  const TDeclaredPointer& GetDeclared() const { return declared_; }

  /// What the property at this position is declared by.
  boost::shared_ptr<const ICIMPropertyDecl> GetDeclarationOf(std::size_t position) const;

  /// The value that was recorded as the one before; empty where none was.
  const TCIMValue* FindPreviousValue(std::size_t position) const;
  void KeepPreviousValue(std::size_t position, const TCIMValue& value);

  // For the tables in which the instance stands.

  TInstanceEntry* GetEntries() const { return entries_; }
  void AddEntry(TInstanceEntry& entry) noexcept;
  void RemoveEntry(TInstanceEntry& entry) noexcept;

  /// Whether a property's value is a reference, be it null, or may become one.
  bool MayHaveReferences() const;

  /// Whether all properties whose values are references have links.
  bool AreAllLinked(const TReferences& references) const;

  /// TInmemInstanceProperty::FindReferencedClass of the property in this position.
  TInmemClass* FindReferencedClass(std::uint32_t position) const;

  /// The reference in this position, or what was one, is about to be set.
  void NoteReferenceChange(std::uint32_t position) noexcept;

  /// Adds the value of the key of that name to the path.
  void AddKeyTo(TCIMReference& path, const std::string& keyName) const;

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

  /// Calls back with an association instance of which the walk knows a reference that points here;
  /// always true.
  bool ReportCandidateClassInstance(const TCIMInstanceCallback& callback,
                                    const boost::shared_ptr<TInmemInstance>& assocInstance,
                                    const TReferrerWalk& walk) const;

  /// Calls back with the association instance if one of its references points here; always true.
  bool ExamineCandidateClassInstance(const TCIMInstanceCallback& callback,
                                     const boost::shared_ptr<ICIMInstance>& assocInstance) const;

  /// The same, but looks at the property named by the role only; always true.
  bool ExamineCandidateClassInstanceWithRole(
      const TCIMInstanceCallback& callback, const std::string& role,
      const boost::shared_ptr<ICIMInstance>& assocInstance) const;

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
  /// A reference at which a walk looks.
  struct TEnd {
    std::size_t position = 0;
    const ICIMClass* referencedClass = nullptr;
    boost::shared_ptr<ICIMClass> held;        ///< the class, where a link does not tell it
    boost::shared_ptr<ICIMProperty> derived;  ///< in place of a property of the instance
  };

  void StampCollectionTime();
  std::size_t CountProperties() const { return declared_->GetEntries().size(); }
  std::size_t FindPosition(const std::string& name) const;
  boost::shared_ptr<ICIMProperty> ShareProperty(std::size_t position) const;
  boost::shared_ptr<ICIMProperty> DeriveProperty(const std::string& name) const;
  boost::shared_ptr<ICIMProperty> DeriveProperty(const std::string& declaredName,
                                                 const TCIMValue& defaultValue) const;
  template <class TUse>
  auto UseProperty(const std::string& name, TUse use) const;
  TFoundEnds ValidateAndFindEnds() const;
  TFoundEnds ValidateReferences() const;
  boost::shared_ptr<TInmemNamespace> GetInmemNamespace() const;

  bool ExamineEnds(const TCIMInstanceCallback& callback,
                   const boost::shared_ptr<ICIMInstance>& assocInstance, std::size_t from) const;
  const TReferences* FindSettled() const;
  const TReferences::TLink* FindLink(const TEnd& end) const;
  void NoteIfSettled() const noexcept;
  bool FindEnd(std::size_t from, TEnd& end) const;
  bool FindEnd(const std::string& role, TEnd& end) const;
  bool TakeEnd(const TCIMValue& value, TEnd& end) const;
  bool LeadsTo(const TEnd& end, const TInmemInstance& target) const;
  boost::shared_ptr<ICIMInstance> FollowEnd(const TEnd& end) const;
  boost::shared_ptr<ICIMElement> Resolve(const TEnd& end) const;
  void Settle(std::uint32_t position, const TStanding& standing) const;
  bool IsOwnEnd(const TInmemInstance& assocInstance, const TEnd& end,
                const std::string& roleKey) const;

  TInstanceEntry* entries_ = nullptr;  ///< the places where it was added
  const int validationFlags_;
  const boost::shared_ptr<TInmemClass> class_;
  const TDeclaredPointer declared_;
  const TInmemProperties properties_;  ///< one per entry of declared_
  std::unique_ptr<std::map<std::size_t, TCIMValue>> previousValues_;  ///< few hosts record any
  mutable TPropertyHolder* holders_ = nullptr;  ///< of the properties that somebody holds
};

}  // namespace NZELVYR20
