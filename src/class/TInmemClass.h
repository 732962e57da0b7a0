#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ICIMClass.h"
#include "TDeclarationTable.h"
#include "TDeclaredProperties.h"
#include "TInmemMethodDecl.h"
#include "TInmemPropertyDecl.h"
#include "TInmemQualifiedElement.h"
#include "TInstanceTable.h"
#include "TOrderedTable.h"
#include "TSubClasses.h"

namespace NZELVYR20 {

class TInmemInstance;
class TInmemNamespace;
class TReferrerWalk;
class TResolution;

/// A class of a TInmemNamespace: the hub that links superclass and subclasses, declarations,
/// qualifiers, instances and the associations that refer to it.
///
/// TInmemClass.cpp holds its life and links, TInmemClassDeclarations.cpp the rules for
/// declarations, TInmemClassQualifiers.cpp flags, keys and validation, TInmemClassQueries.cpp the
/// questions about its place in the hierarchy.
class TInmemClass : public TInmemQualifiedElement<ICIMClass, TInmemClass> {
 public:
  /// Only TInmemNamespace makes classes; it calls Initialize on a new one.
  TInmemClass(const boost::shared_ptr<TInmemNamespace>& nameSpace, const std::string& name,
              const boost::shared_ptr<TInmemClass>& superClass);
  TInmemClass(const TInmemClass&) = delete;
  ~TInmemClass() override;

  /// Deletes a class, as the deleter of the pointers that own it. Classes may hold one another in
  /// chains of any length, which the stack must not follow: a class that goes because another is
  /// being deleted waits until that one is gone.
  static void Delete(TInmemClass* cimClass) noexcept;

  /// Takes over what the superclass passes down, in place of what is here.
  void Initialize();

  /// Takes over what the superclass passes down and what is not here yet.
  void PropagateFromSuperClass();

  /// The instance under the text of the path; empty when there is none.
  boost::shared_ptr<TInmemInstance> GetInstance(const TCIMReference& path,
                                                TCIMContext context) const;

  /// The same; tells `resolution`, if there is one, where the instance stands.
  boost::shared_ptr<ICIMInstance> FindInstance(const TCIMReference& path,
                                               TResolution* resolution) const;

  /// ICIMClass::AddInstance; `found` may tell where references of the instance lead.
  void AddInstance(const boost::shared_ptr<TInmemInstance>& instance,
                   const TFoundReferences& found);

  /// Takes an instance, and the walk that came to it.
  using TReferrerCallback =
      boost::function<bool(const boost::shared_ptr<TInmemInstance>&, const TReferrerWalk&)>;

  /// EnumerateInstances of this class alone, but for instances that certainly do not refer to
  /// `origin`, by the property of this role (empty: by any). `follows` tells whether the callback
  /// will look at what their references lead to.
  void EnumerateReferrers(TInmemInstance& origin, const std::string& role, EFollows follows,
                          const TReferrerCallback& callback);

  /// How often a reference of one of its instances was set.
  std::uint64_t GetReferenceChanges() const { return referenceChanges_; }
  void NoteReferenceChange() noexcept { ++referenceChanges_; }

  /// Another class has taken this one's place in the namespace, which no longer finds its
  /// instances.
  void LoseStanding() noexcept { instances_.LoseStanding(); }

  void ClearInstances();

  /// Lists the subclasses of the class that this one replaces, instead of its own. The subclasses
  /// are not told.
  void TakeOverSubClasses(const TInmemClass& replaced);

  /// The present property declarations, shared by all who ask until one changes.
  TDeclaredPointer GetDeclaredProperties();

  /// AddPropertyDecl; returns the declaration that then stands under the name, this one or another.
  boost::shared_ptr<TInmemPropertyDecl> Declare(boost::shared_ptr<ICIMPropertyDecl> declaration);

  /// Lets go of instances, subclasses, associations and of what its qualifiers, and declarations
  /// that no other class needs, refer to: its namespace goes, and these hold one another.
  void ReleaseLinks();

  void Validate(TCIMContext context) const override;
  void AddToNamespace(TCIMContext context) override;
  void RemoveFromNamespace(TCIMContext context) override;
  void ModifyClass(boost::shared_ptr<ICIMClass> cimClass, TCIMContext context) override;
  const std::string& GetName(TCIMContext context) const override;
  boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) const override;
  bool IsAssociation(TCIMContext context) const override;
  bool IsAbstract(TCIMContext context) const override;
  bool IsRootClass(TCIMContext context) const override;
  boost::shared_ptr<ICIMClass> GetSuperClass(TCIMContext context) const override;
  void EnumerateSubClasses(const TCIMClassCallback& callback, bool deep,
                           TCIMContext context) override;
  bool IsSubclassOf(boost::shared_ptr<const ICIMClass> other, TCIMContext context) const override;
  void EnumerateAssociatedClasses(const TCIMClassCallback& callback, const std::string& assocClass,
                                  const std::string& resultClass, const std::string& role,
                                  const std::string& resultRole, TCIMContext context) override;
  void EnumerateAssociationClasses(const TCIMClassCallback& callback,
                                   const std::string& resultClass, const std::string& role,
                                   TCIMContext context) override;
  void EnumerateKeyNames(const TCIMKeyNameCallback& callback, TCIMContext context) override;
  boost::shared_ptr<ICIMPropertyDecl> AllocatePropertyDecl(const std::string& name,
                                                           const TCIMValue& defaultValue,
                                                           TCIMContext context) override;
  boost::shared_ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                      TCIMContext context) const override;
  void EnumeratePropertyDecls(const TCIMPropertyDeclCallback& callback,
                              TCIMContext context) const override;
  boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name,
                                              TCIMContext context) const override;
  void SetPropertyValue(const std::string& name, const TCIMValue& value,
                        TCIMContext context) override;
  void EnumerateStaticProperties(const TCIMPropertyCallback& callback,
                                 TCIMContext context) override;
  boost::shared_ptr<ICIMInstance> AllocateInstance(TCIMContext context) override;
  void EnumerateInstances(const TCIMInstanceCallback& callback, bool deep,
                          TCIMContext context) override;
  boost::shared_ptr<ICIMMethodDecl> AllocateMethodDecl(const std::string& name,
                                                       TCIMValue::TCIMType returnType,
                                                       TCIMContext context) override;
  boost::shared_ptr<ICIMMethodDecl> GetMethodDecl(const std::string& name,
                                                  TCIMContext context) const override;
  void EnumerateMethodDecls(const TCIMMethodDeclCallback& callback,
                            TCIMContext context) const override;
  TCIMValue InvokeMethod(const std::string& name, TCIMContext& parameters,
                         TCIMContext context) override;
  bool operator==(ICIMClass& other) const override;
  bool operator<(ICIMClass& other) const override;
  using TInmemQualifiedElement::operator=;
  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): it copies nothing
  TInmemClass& operator=(const TInmemClass&) { return *this; }
  void AddChildClass(boost::shared_ptr<ICIMClass> subClass) override;
  void RemoveChildClass(boost::shared_ptr<ICIMClass> subClass) override;
  void AddInstance(boost::shared_ptr<ICIMInstance> instance) override;
  void RemoveInstance(boost::shared_ptr<ICIMInstance> instance) override;
  void AddAssociationClass(boost::shared_ptr<ICIMClass> association) override;
  void RemoveAssociationClass(boost::shared_ptr<ICIMClass> association) override;
  void AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration) override;
  void RemovePropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration) override;
  void AddMethodDecl(boost::shared_ptr<ICIMMethodDecl> declaration) override;
  void RemoveMethodDecl(boost::shared_ptr<ICIMMethodDecl> declaration) override;

  // The order of these three is part of the binary contract: in the class's own table the form
  // with the found flag stands before the enumeration, unlike in ICIMNamedElement.
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext context) const override;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                TCIMContext context) const override;
  void EnumerateQualifiers(const TCIMQualifierCallback& callback,
                           TCIMContext context) const override;

 private:
  using TClassList = std::vector<boost::shared_ptr<ICIMClass>>;
  using TPropertyDeclPointer = boost::shared_ptr<TInmemPropertyDecl>;
  using TPropertyDecls = TDeclarationTable<TInmemPropertyDecl>;
  using TMethodDeclPointer = boost::shared_ptr<TInmemMethodDecl>;
  using TAssociationClasses = TOrderedTable<const ICIMClass*, TInmemClass>;

  /// Where a walk down the hierarchy goes from a class.
  enum class EStep { kDown, kNext, kUp };
  struct TLevel;
  template <class TVisit>
  void WalkDown(TVisit visit);

  void Inherit(TInmemQualifierSet::EInherit inherit);
  bool HangsUnderRoot();
  template <class TVisit>
  void ForEachRegistration(TVisit visit) const;
  bool IsReferenceSkipped(const TInmemPropertyDecl& reference,
                          const boost::shared_ptr<ICIMClass>& target) const;
  void List(TSubClasses::TSpare listing, std::string_view name);

  bool IsPropertyDeclAccepted(const ICIMPropertyDecl& declaration, const std::string& key,
                              const TPropertyDeclPointer& existing) const;
  bool IsPropertyOverrideAccepted(const ICIMPropertyDecl& declaration, const std::string& key,
                                  const TPropertyDeclPointer& existing) const;
  void CheckMethodDecl(const ICIMMethodDecl& declaration, const TMethodDeclPointer& existing) const;
  void CheckMethodOverride(const ICIMMethodDecl& declaration,
                           const TMethodDeclPointer& existing) const;
  bool IsDeclaredHere(const boost::shared_ptr<ICIMClass>& declaringClass) const;

  boost::shared_ptr<ICIMClass> FindFilterClass(const std::string& name) const;
  bool RefersTo(ICIMClass& association, const std::string& role) const;
  TClassList GetFarEnds(TInmemClass& association, const boost::shared_ptr<ICIMClass>& resultClass,
                        const std::string& role, const std::string& resultRole) const;

  const boost::weak_ptr<TInmemNamespace> namespace_;
  const std::string name_;
  boost::weak_ptr<TInmemClass> superClass_;
  TPropertyDecls propertyDecls_;
  TSubClasses subClasses_;
  TAssociationClasses associationClasses_;
  TInstanceTable instances_;
  std::uint64_t referenceChanges_ = 0;
  TDeclarationTable<TInmemMethodDecl> methodDecls_;
  bool isInNamespace_ = false;
  TDeclaredPointer declaredProperties_;  ///< where asked for since
  TInmemClass* nextToDelete_ = nullptr;  ///< see Delete
};

}  // namespace NZELVYR20
