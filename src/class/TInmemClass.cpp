#include "TInmemClass.h"

#include <utility>

#include "Failures.h"
#include "InMemory.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

/// An association's entry at a class to which it refers, made ahead where that class is one of this
/// repository's.
class TInmemClass::TRegistration {
 public:
  TRegistration(const boost::shared_ptr<ICIMClass>& target,
                const boost::shared_ptr<TInmemClass>& association)
      : target_(target), association_(association) {
    entry_.Add(association.get(), association);
  }

  void Enter() {
    if (const auto own = boost::dynamic_pointer_cast<TInmemClass>(target_)) {
      own->associationClasses_.Insert(std::move(entry_));
    } else {
      target_->AddAssociationClass(association_);
    }
  }

 private:
  boost::shared_ptr<ICIMClass> target_;
  boost::shared_ptr<TInmemClass> association_;
  TAssociationClasses::TDraft entry_;
};

TInmemClass::TInmemClass(const boost::shared_ptr<TInmemNamespace>& nameSpace,
                         const std::string& name, const boost::shared_ptr<TInmemClass>& superClass)
    : TInmemQualifiedElement(TInmemQualifierSet::EMatch::kValue),
      namespace_(nameSpace),
      name_(name),
      superClass_(superClass) {}

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

void TInmemClass::Initialize() {
  if (HangsUnderRoot()) return;
  const auto superClass = superClass_.lock();
  propertyDecls_.Clear();
  propertyDecls_.Insert(propertyDecls_.GetMissing(superClass->propertyDecls_));
  methodDecls_.Clear();
  methodDecls_.Insert(methodDecls_.GetMissing(superClass->methodDecls_));
  qualifiers_.Inherit(superClass->qualifiers_, shared_from_this(),
                      TInmemQualifierSet::EInherit::kAllButAbstract);
}

void TInmemClass::PropagateFromSuperClass() {
  if (HangsUnderRoot()) return;
  const auto superClass = superClass_.lock();
  auto properties = propertyDecls_.GetMissing(superClass->propertyDecls_);
  auto methods = methodDecls_.GetMissing(superClass->methodDecls_);
  qualifiers_.Inherit(superClass->qualifiers_, shared_from_this(),
                      TInmemQualifierSet::EInherit::kAll);
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
  ReleaseReferences();
  // A declaration of a superclass in a namespace that lives on is left as it is. All others may
  // have nobody else to undo them: the class that declared them may have lost them.
  const auto release = [](const std::string&, const auto& declaration) {
    const auto declaringClass = declaration->GetClass(TCIMContext());
    if (declaringClass && declaringClass->GetNamespace(TCIMContext())) return;
    declaration->ReleaseReferences();
  };
  propertyDecls_.ForEach(release);
  methodDecls_.ForEach(release);
}

/// What needs memory is made before the class enters the namespace. A status that comes later, of a
/// qualifier "ASSOCIATION" that is no boolean, leaves what was done before it.
void TInmemClass::AddToNamespace(TCIMContext) {
  Validate(TCIMContext());
  const auto self = shared_from_this();
  const auto superClass = superClass_.lock();
  const auto nameSpace = namespace_.lock();
  TSubClasses::TDraft listing;
  listing.Add(superClass->nextSubClass_, self);
  std::vector<TRegistration> registrations;
  for (const auto& target : GetClassesToRegisterWith()) registrations.emplace_back(target, self);
  nameSpace->AddClass(self);
  superClass->List(std::move(listing), *self);
  isInNamespace_ = true;
  if (!IsAssociation(TCIMContext())) return;
  for (TRegistration& registration : registrations) registration.Enter();
}

void TInmemClass::RemoveFromNamespace(TCIMContext) {
  if (!isInNamespace_ || !associationClasses_.IsEmpty() || !subClasses_.IsEmpty()) {
    throw Failure::CannotLeaveNamespace();
  }
  const auto self = shared_from_this();
  const auto targets = GetClassesToRegisterWith();
  namespace_.lock()->RemoveClass(self);
  if (const auto superClass = superClass_.lock()) superClass->RemoveChildClass(self);
  isInNamespace_ = false;
  if (!IsAssociation(TCIMContext())) return;
  for (const auto& target : targets) target->RemoveAssociationClass(self);
}

/// Where an association registers: with each class that one of its references points to, except as
/// IsReferenceSkipped says.
TInmemClass::TClassList TInmemClass::GetClassesToRegisterWith() const {
  TClassList targets;
  propertyDecls_.ForEach([&](const std::string&, const TPropertyDeclPointer& declaration) {
    const auto target = declaration->GetReferencedClass();
    if (target && !IsReferenceSkipped(*declaration, target)) targets.push_back(target);
  });
  return targets;
}

/// Of several references to one class only the last registers, and a reference to a class whose
/// superclass is referred to as well leaves the registration to that one.
bool TInmemClass::IsReferenceSkipped(const TInmemPropertyDecl& reference,
                                     const boost::shared_ptr<ICIMClass>& target) const {
  bool isPassed = false;
  bool isSkipped = false;
  propertyDecls_.ForEach([&](const std::string&, const TPropertyDeclPointer& declaration) {
    if (declaration.get() == &reference) {
      isPassed = true;
      return;
    }
    const auto other = declaration->GetReferencedClass();
    if (!other) return;
    isSkipped =
        isSkipped || (other == target ? isPassed : target->IsSubclassOf(other, TCIMContext()));
  });
  return isSkipped;
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

bool TInmemClass::operator==(ICIMClass& other) const {
  return name_ == other.GetName(TCIMContext());
}

bool TInmemClass::operator<(ICIMClass& other) const { return name_ < other.GetName(TCIMContext()); }

void TInmemClass::AddChildClass(boost::shared_ptr<ICIMClass> subClass) {
  const auto added = InMemory<TInmemClass>(subClass);
  TSubClasses::TDraft listing;
  listing.Add(nextSubClass_, added);
  List(std::move(listing), *added);
}

/// Puts the subclass at the end, as `listing` has it.
void TInmemClass::List(TSubClasses::TDraft listing, const TInmemClass& subClass) {
  const bool mayRedefine = namespace_.lock()->IsRedefinitionAllowed();
  const std::uint64_t position = nextSubClass_++;
  subClasses_.Insert(std::move(listing));
  if (!mayRedefine) return;
  subClasses_.EraseFirst([&](std::uint64_t other, const TInmemClass& present) {
    return other != position && present.name_ == subClass.name_;
  });
}

void TInmemClass::RemoveChildClass(boost::shared_ptr<ICIMClass> subClass) {
  subClasses_.EraseFirst(
      [&](std::uint64_t, const TInmemClass& present) { return &present == subClass.get(); });
}

void TInmemClass::TakeOverSubClasses(const TInmemClass& replaced) {
  if (this == &replaced) return;
  auto taken = TSubClasses().GetMissing(replaced.subClasses_);
  subClasses_.Clear();
  subClasses_.Insert(std::move(taken));
  nextSubClass_ = replaced.nextSubClass_;
}

void TInmemClass::AddAssociationClass(boost::shared_ptr<ICIMClass> association) {
  associationClasses_.Insert(association.get(), InMemory<TInmemClass>(association));
}

void TInmemClass::RemoveAssociationClass(boost::shared_ptr<ICIMClass> association) {
  if (!associationClasses_.Erase(association.get())) throw Failure::NotFound();
}

boost::shared_ptr<ICIMInstance> TInmemClass::AllocateInstance(TCIMContext) {
  return boost::make_shared<TInmemInstance>(shared_from_this(), TInmemInstance::kValidateAll);
}

void TInmemClass::AddInstance(boost::shared_ptr<ICIMInstance> instance) {
  AddInstance(InMemory<TInmemInstance>(instance), {});
}

void TInmemClass::AddInstance(const boost::shared_ptr<TInmemInstance>& instance,
                              const TFoundEnds& found) {
  // An instance and its class hold each other. Without the namespace, which would part them in the
  // end, they would hold for ever.
  if (namespace_.expired()) return;
  const std::string path = instance->GetReference(TCIMContext()).GetPath();
  // What was found holds for the references as they were.
  const bool holds = found.referenceChanges == referenceChanges_;
  instances_.Put(path, instance, holds ? found : TFoundEnds());
}

void TInmemClass::RemoveInstance(boost::shared_ptr<ICIMInstance> instance) {
  instances_.Erase(instance->GetReference(TCIMContext()).GetPath());
}

boost::shared_ptr<TInmemInstance> TInmemClass::GetInstance(const TCIMReference& path,
                                                           TCIMContext) const {
  return instances_.Find(path.GetPath());
}

TInstanceEntry* TInmemClass::FindEntry(const TCIMReference& path) const {
  return instances_.FindEntry(path.GetPath());
}

void TInmemClass::ClearInstances() { instances_.Clear(); }

}  // namespace NZELVYR20
