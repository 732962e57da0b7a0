#include "TInmemClass.h"

#include <utility>

#include "Failures.h"
#include "InMemory.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TResolution.h"

namespace NZELVYR20 {

TInmemClass::TInmemClass(const boost::shared_ptr<TInmemNamespace>& nameSpace,
                         const std::string& name, const boost::shared_ptr<TInmemClass>& superClass)
    : TInmemQualifiedElement(TInmemQualifierSet::EMatch::kValue),
      namespace_(nameSpace),
      name_(name),
      superClass_(superClass),
      instances_(&TInmemInstance::CountReferencesOf) {}

TInmemClass::~TInmemClass() = default;

void TInmemClass::Delete(TInmemClass* cimClass) noexcept {
  // As a rule the loader allocates the data of a library that is loaded late when a thread first
  // touches them, and ends the process where it cannot. These few bytes every thread has at once.
  [[gnu::tls_model("initial-exec")]] thread_local TInmemClass* waiting = nullptr;
  [[gnu::tls_model("initial-exec")]] thread_local bool isDeleting = false;
  cimClass->nextToDelete_ = std::exchange(waiting, cimClass);
  if (std::exchange(isDeleting, true)) return;
  while (waiting) {
    const TInmemClass* const next = waiting;
    waiting = next->nextToDelete_;
    delete next;
  }
  isDeleting = false;
}

void TInmemClass::Initialize() { Inherit(TInmemQualifierSet::EInherit::kAllButAbstract); }

void TInmemClass::PropagateFromSuperClass() { Inherit(TInmemQualifierSet::EInherit::kAll); }

void TInmemClass::Inherit(TInmemQualifierSet::EInherit inherit) {
  if (HangsUnderRoot()) return;
  const auto superClass = superClass_.lock();
  // First what asks declarations of the host's, which may change the tables.
  auto qualifiers = qualifiers_.GetInherited(superClass->qualifiers_, shared_from_this(), inherit);
  auto properties = propertyDecls_.GetMissing(superClass->propertyDecls_);
  auto methods = methodDecls_.GetMissing(superClass->methodDecls_);
  qualifiers_.Insert(std::move(qualifiers));
  if (!properties.IsEmpty()) declaredProperties_.reset();
  propertyDecls_.Insert(std::move(properties));
  methodDecls_.Insert(std::move(methods));
}

/// A class that has no superclass, or has lost it, comes under the root class and inherits nothing
/// from it; the root class itself stays without one.
bool TInmemClass::HangsUnderRoot() {
  if (superClass_.lock()) return false;
  const auto rootClass = namespace_.lock()->GetRootClass();
  if (rootClass.get() != this) superClass_ = rootClass;
  return true;
}

void TInmemClass::ReleaseLinks() {
  instances_.Clear();
  subClasses_.Clear();
  associationClasses_.Clear();
  declaredProperties_.reset();
  ReleaseClasses();
  propertyDecls_.Retire();
  methodDecls_.Retire();
}

/// What needs memory is made before the class enters the namespace, and used as things stand when
/// it is due: the host may change them when classes of its own are asked. What fails after that
/// leaves what was done before it.
void TInmemClass::AddToNamespace(TCIMContext) {
  Validate({});
  const auto self = shared_from_this();
  TSubClasses::TSpare listing(self, name_);
  std::vector<TAssociationClasses::TSpare> registrations;
  propertyDecls_.ForEach([&](const std::string&, const TPropertyDeclPointer& declaration) {
    if (declaration->IsReference()) registrations.emplace_back(self);
  });
  namespace_.lock()->AddClass(self);
  superClass_.lock()->List(std::move(listing), name_);
  isInNamespace_ = true;
  if (!IsAssociation({})) return;
  ForEachRegistration([&](ICIMClass& target) {
    auto* const own = FindInMemory<TInmemClass>(&target);
    if (!own || registrations.empty()) return target.AddAssociationClass(self);
    own->associationClasses_.Insert(this, std::move(registrations.back()));
    registrations.pop_back();
  });
}

void TInmemClass::RemoveFromNamespace(TCIMContext) {
  if (!isInNamespace_ || !associationClasses_.IsEmpty() || !subClasses_.IsEmpty()) {
    throw Failure::CannotLeaveNamespace();
  }
  const auto self = shared_from_this();
  namespace_.lock()->RemoveClass(self);
  if (const auto superClass = superClass_.lock()) superClass->RemoveChildClass(self);
  isInNamespace_ = false;
  if (!IsAssociation({})) return;
  ForEachRegistration([&](ICIMClass& target) { target.RemoveAssociationClass(self); });
}

/// Visits the classes with which an association registers: each to which one of its references
/// points, except as IsReferenceSkipped says. `visit` may change the references.
template <class TVisit>
void TInmemClass::ForEachRegistration(TVisit visit) const {
  TPropertyDecls::TCursor cursor(propertyDecls_, TPropertyDecls::EAdded::kVisited);
  while (cursor.Next()) {
    const auto& declaration = cursor.GetCurrent();
    const auto target = declaration->GetReferencedClass();
    if (target && !IsReferenceSkipped(*declaration, target)) visit(*target);
  }
}

/// Of several references to one class only the last registers, and a reference to a class whose
/// superclass is referred to as well leaves the registration to that one.
bool TInmemClass::IsReferenceSkipped(const TInmemPropertyDecl& reference,
                                     const boost::shared_ptr<ICIMClass>& target) const {
  bool isPassed = false;
  TPropertyDecls::TCursor cursor(propertyDecls_, TPropertyDecls::EAdded::kVisited);
  while (cursor.Next()) {
    const auto& declaration = cursor.GetCurrent();
    if (declaration.get() == &reference) {
      isPassed = true;
      continue;
    }
    const auto other = declaration->GetReferencedClass();
    if (!other) continue;
    if (other == target ? isPassed : target->IsSubclassOf(other, {})) return true;
  }
  return false;
}

void TInmemClass::ModifyClass(boost::shared_ptr<ICIMClass>, TCIMContext) {}

const std::string& TInmemClass::GetName(TCIMContext) const { return name_; }

boost::shared_ptr<ICIMNamespace> TInmemClass::GetNamespace(TCIMContext) const {
  return namespace_.lock();
}

/// No other class can bear the name: to allocate it is to ask for the root class.
bool TInmemClass::IsRootClass(TCIMContext) const {
  return name_ == TInmemNamespace::kRootClassName;
}

boost::shared_ptr<ICIMClass> TInmemClass::GetSuperClass(TCIMContext) const {
  return superClass_.lock();
}

TCIMValue TInmemClass::InvokeMethod(const std::string&, TCIMContext&, TCIMContext) {
  return TCIMValue();
}

bool TInmemClass::operator==(ICIMClass& other) const { return name_ == other.GetName({}); }

bool TInmemClass::operator<(ICIMClass& other) const { return name_ < other.GetName({}); }

void TInmemClass::AddChildClass(boost::shared_ptr<ICIMClass> subClass) {
  const auto added = InMemory<TInmemClass>(subClass);
  List(TSubClasses::TSpare(added, added->name_), added->name_);
}

/// Puts the subclass of that name at the end, as `listing` has it.
void TInmemClass::List(TSubClasses::TSpare listing, std::string_view name) {
  const bool mayRedefine = namespace_.lock()->IsRedefinitionAllowed();
  const std::uint64_t position = subClasses_.Add(std::move(listing));
  if (!mayRedefine) return;
  subClasses_.EraseFirst(
      name, [&](std::uint64_t other, const TInmemClass&) { return other != position; });
}

void TInmemClass::RemoveChildClass(boost::shared_ptr<ICIMClass> subClass) {
  const auto* const removed = FindInMemory<TInmemClass>(subClass.get());
  if (!removed) return;
  subClasses_.EraseFirst(removed->name_, [&](std::uint64_t, const TInmemClass& present) {
    return &present == removed;
  });
}

void TInmemClass::TakeOverSubClasses(const TInmemClass& replaced) {
  if (this != &replaced) subClasses_.Assign(replaced.subClasses_);
}

void TInmemClass::AddAssociationClass(boost::shared_ptr<ICIMClass> association) {
  associationClasses_.Insert(association.get(), InMemory<TInmemClass>(association));
}

void TInmemClass::RemoveAssociationClass(boost::shared_ptr<ICIMClass> association) {
  if (associationClasses_.Erase(association.get()) || namespace_.expired()) return;
  throw Failure::NotFound();
}

boost::shared_ptr<ICIMInstance> TInmemClass::AllocateInstance(TCIMContext) {
  return TInmemInstance::Make(shared_from_this(), TInmemInstance::kValidateAll);
}

void TInmemClass::AddInstance(boost::shared_ptr<ICIMInstance> instance) {
  AddInstance(InMemory<TInmemInstance>(instance), {});
}

void TInmemClass::AddInstance(const boost::shared_ptr<TInmemInstance>& instance,
                              const TFoundReferences& found) {
  // An instance and its class hold each other. Without the namespace, which would part them in the
  // end, they would hold for ever.
  if (namespace_.expired()) return;
  const TCIMReference reference = instance->GetReference({});
  const std::string& path = reference.GetPath();
  // What was found holds for the references as they were.
  const bool holds = found.changes == referenceChanges_;
  if (holds) return instances_.Put(path, instance, found);
  instances_.Put(path, instance, {});
}

void TInmemClass::RemoveInstance(boost::shared_ptr<ICIMInstance> instance) {
  const auto self = shared_from_this();
  instances_.Erase(instance->GetReference({}).GetPath());
}

boost::shared_ptr<TInmemInstance> TInmemClass::GetInstance(const TCIMReference& path,
                                                           TCIMContext) const {
  return boost::static_pointer_cast<TInmemInstance>(instances_.Find(path.GetPath()));
}

boost::shared_ptr<ICIMInstance> TInmemClass::FindInstance(const TCIMReference& path,
                                                          TResolution* resolution) const {
  TInstanceEntry* const entry = instances_.FindEntry(path.GetPath());
  if (!entry) return {};
  auto instance = boost::static_pointer_cast<TInmemInstance>(entry->instance);
  if (resolution) {
    const boost::shared_ptr<const TInstanceTable> table(shared_from_this(), &instances_);
    resolution->NoteGiven({table, entry, table->GetRemovals()}, *instance);
  }
  return instance;
}

void TInmemClass::ClearInstances() { instances_.Clear(); }

}  // namespace NZELVYR20
