#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "ICIMInstance.h"
#include "ICIMPropertyDecl.h"
#include "THeldProperty.h"
#include "TIndexedInstance.h"
#include "TInmemValues.h"
#include "TStanding.h"

namespace NZELVYR20 {

class TInmemClass;
class TInmemNamespace;
class TReferrerWalk;

/// The class of an instance. A part of its own, since it has to go after the declarations: these
/// let go of what they hold while it is there.
struct TInstanceClass {
  const boost::shared_ptr<TInmemClass> class_;
};

/// An instance of a TInmemClass: its class, which it holds, and one property for each declaration
/// that the class had when the instance was made. It keeps those declarations alive, and the
/// values; what hosts get for a property is made when they ask.
///
/// TInmemInstance.cpp holds its life and properties, TInmemInstanceReferences.cpp its references,
/// if it is one of an association, and where they lead, TInmemInstanceTraversal.cpp the walks along
/// associations.
class TInmemInstance final : public ICIMInstance,
                             private TInstanceClass,
                             public TIndexedInstance,
                             public boost::enable_shared_from_this<TInmemInstance> {
 public:
  /// What Validate looks at, as bits.
  static constexpr int kValidateKeys = 1;
  static constexpr int kValidateReferences = 2;
  static constexpr int kValidateAll = kValidateKeys | kValidateReferences;

  /// An instance for hosts. What the properties that are held then need of it stays when its last
  /// pointer goes, until they go, too.
  static boost::shared_ptr<TInmemInstance> Make(const boost::shared_ptr<TInmemClass>& cimClass,
                                                int validationFlags);

  /// Only Make makes it.
  TInmemInstance(const boost::shared_ptr<TInmemClass>& cimClass, TDeclaredPointer declared,
                 int validationFlags);
  TInmemInstance(const TInmemInstance&) = delete;
  ~TInmemInstance() override;

  /// What the property at this position is declared by.
  boost::shared_ptr<const ICIMPropertyDecl> GetDeclarationOf(std::size_t position) const;

  /// The property's own value; empty where the default shows.
  const TCIMValue* FindOwnValue(std::size_t position) const { return values_.Find(position); }
  void KeepOwnValue(std::size_t position, const TCIMValue& value);

  /// The value that was recorded as the one before; empty where none was.
  const TCIMValue* FindPreviousValue(std::size_t position) const;
  void KeepPreviousValue(std::size_t position, const TCIMValue& value);

  /// TCountReferences, for a TInmemInstance.
  static std::optional<std::size_t> CountReferencesOf(const TIndexedInstance& instance);

  /// Somebody holds this property of it, which nobody held; and the last one let it go.
  void NoteHeld(THeldProperty& property) noexcept { held_.Add(property); }
  void NoteLetGo(THeldProperty& property) noexcept;

  /// The last pointer to it has gone.
  void LetGo() noexcept;

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
                             EFollows follows, const boost::shared_ptr<ICIMClass>& assocClass);

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
  struct TReference {
    std::size_t position = 0;
    const ICIMClass* referencedClass = nullptr;
    boost::shared_ptr<ICIMClass> heldClass;   ///< the same, where no link tells it
    boost::shared_ptr<ICIMProperty> derived;  ///< in place of a property of the instance
  };

  void StampCollectionTime();
  std::size_t CountProperties() const { return GetDeclared()->GetEntries().size(); }
  std::size_t FindPosition(const std::string& name) const;
  boost::shared_ptr<ICIMProperty> ShareProperty(std::size_t position) const;
  boost::shared_ptr<ICIMProperty> DeriveProperty(const std::string& name) const;
  boost::shared_ptr<ICIMProperty> DeriveProperty(const std::string& declaredName,
                                                 const TCIMValue& defaultValue) const;
  const TCIMValue& GetValueAt(std::size_t position) const;
  TInmemClass* FindReferencedClass(std::size_t position) const;
  void NoteReferenceChange(std::size_t position) noexcept;
  template <class TUse>
  auto UseValue(const std::string& name, TUse use) const;
  TFoundReferences ValidateAndFind() const;
  TFoundReferences ValidateReferences() const;
  boost::shared_ptr<TInmemNamespace> GetInmemNamespace() const;
  std::optional<std::size_t> CountReferences() const;

  void EnumerateReferences(const TCIMInstanceCallback& callback, const std::string& resultClass,
                           const std::string& role, EFollows follows);
  bool ExamineReferences(const TCIMInstanceCallback& callback,
                         const boost::shared_ptr<ICIMInstance>& assocInstance,
                         std::size_t from) const;
  const TReferences* FindSettled() const;
  const TReferences::TLink* FindLink(const TReference& reference) const;
  void NoteIfSettled() noexcept;
  bool FindReference(std::size_t from, TReference& reference) const;
  bool FindReference(const std::string& role, TReference& reference) const;
  const TCIMValue& GetValueOf(const TReference& reference) const;
  static bool Take(const TCIMValue& value, TReference& reference);
  bool LeadsTo(const TReference& reference, const TInmemInstance& origin);
  boost::shared_ptr<ICIMInstance> Follow(const TReference& reference);
  boost::shared_ptr<ICIMElement> Resolve(const TReference& reference);
  void Settle(std::uint32_t position, const TStanding& standing);
  bool IsNear(TInmemInstance& assocInstance, const TReference& reference,
              const std::string& roleKey) const;

  const int validationFlags_;
  bool isLetGo_ = false;
  std::unique_ptr<std::map<std::size_t, TCIMValue>> previousValues_;  ///< few hosts record any
  THeldProperty::TList held_;  ///< the properties that somebody holds
  TInmemValues values_;        ///< has to be the last: room for one for each declaration follows
};

}  // namespace NZELVYR20
