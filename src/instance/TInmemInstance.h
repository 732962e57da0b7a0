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

class TInstanceTable;

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
  const boost::shared_ptr<const TDeclaredProperties>& GetDeclared() const { return declared_; }

  /// What the property at this position is declared by.
  boost::shared_ptr<const ICIMPropertyDecl> GetDeclarationOf(std::size_t position) const;

  /// The value that was recorded as the one before; empty where none was.
  const TCIMValue* FindPreviousValue(std::size_t position) const;
  void KeepPreviousValue(std::size_t position, const TCIMValue& value);

  /// Where the reference that is the own value of this property leads, as an index has settled it;
  /// empty where none has.
  TReferenceTarget* FindTarget(std::size_t position) const;

  /// What stands where the target's path leads; empty when nothing does.
  boost::shared_ptr<TInmemInstance> Follow(TReferenceTarget& target) const;

  // For the tables in which the instance stands.

  TInstanceEntry* GetEntries() const { return entries_; }
  void AddEntry(TInstanceEntry& entry) noexcept;
  void RemoveEntry(TInstanceEntry& entry) noexcept;

  /// Whether the table is that of its class.
  bool IsOf(const TInstanceTable& table) const;

  /// Whether a property's value is a reference, be it null, or may become one.
  bool MayHaveReferences() const;
  /// A property that has or had a reference for its value was set.
  void ReferencesChanged() noexcept;

  /// Where all references lead, as the host resolves them; empty where one leads nowhere or
  /// elsewhere than its path says. Passes on what the host throws.
  TLeads FindLeads() const;

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

  /// Calls back with an association instance of which a reference is known to point here; always
  /// true.
  bool ReportCandidateClassInstance(const TCIMInstanceCallback& callback,
                                    const boost::shared_ptr<TInmemInstance>& assocInstance);

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
  void StampCollectionTime();
  std::size_t FindPosition(const std::string& name) const;
  boost::shared_ptr<ICIMProperty> ShareProperty(std::size_t position) const;
  boost::shared_ptr<ICIMProperty> DeriveProperty(const std::string& declaredName,
                                                 const TCIMValue& defaultValue) const;
  TLeads ValidateAndFindLeads() const;
  TLeads ValidateReferences() const;
  bool ExamineProperties(const TCIMInstanceCallback& callback,
                         const boost::shared_ptr<TInmemInstance>& assocInstance,
                         std::size_t hitsBefore);
  const TReferences* GetSettledReferences() const;
  bool FindEnd(std::size_t from, TReferences::TEdge& end) const;
  boost::shared_ptr<ICIMElement> FollowEnd(const TReferences::TEdge& end) const;
  bool IsOwnEnd(const TInmemInstance& assocInstance, const TReferences::TEdge& end,
                const std::string& roleKey) const;

  TInstanceEntry* entries_ = nullptr;  ///< the places where it was added
  const int validationFlags_;
  const boost::shared_ptr<TInmemClass> class_;
  const boost::shared_ptr<const TDeclaredProperties> declared_;
  const TInmemProperties properties_;  ///< one per entry of declared_
  std::unique_ptr<std::map<std::size_t, TCIMValue>> previousValues_;  ///< few hosts record any
};

}  // namespace NZELVYR20
