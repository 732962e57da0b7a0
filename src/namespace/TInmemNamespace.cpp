#include "TInmemNamespace.h"

#include <algorithm>
#include <boost/make_shared.hpp>
#include <utility>

#include "Enumerate.h"
#include "Failures.h"
#include "InMemory.h"
#include "NormalizedNames.h"
#include "Swallow.h"
#include "TCIMReference.h"
#include "TInmemClass.h"
#include "TInmemNamespaceProvider.h"
#include "TInmemQualifierDecl.h"

namespace NZELVYR20 {

namespace {

/// Classes with this anywhere in their names are never redefined: the first definition stays, and
/// hosts that define one again must not notice.
constexpr const char* kNeverRedefined = "zelsg_physicalnetworkport";

/// The spelling counts: "<ROOT>" is no CIM name.
bool IsRootName(const std::string& name) {
  return name.empty() || name == TInmemNamespace::kRootClassName;
}

[[noreturn]] void FailAlreadyDefined(const char* kind, const std::string& name) {
  LogDefinitionFailure(std::string("Inmem: TInmemNamespace: ") + kind + " " + name +
                       " already defined");
  throw Failure::AlreadyDefined();
}

}  // namespace

const char* const TInmemNamespace::kRootClassName = "<root>";

TInmemNamespace::TInmemNamespace(bool allowRedefinition) : allowRedefinition_(allowRedefinition) {}

TInmemNamespace::~TInmemNamespace() {
  // Latest first: a subclass has let go of everything before its superclass lets go of it.
  for (auto made = madeClasses_.rbegin(); made != madeClasses_.rend(); ++made) {
    if (const auto cimClass = made->lock()) cimClass->ReleaseLinks();
  }
}

void TInmemNamespace::Initialize() {
  rootClass_ = boost::static_pointer_cast<TInmemClass>(AllocateClass(kRootClassName, {}, {}));
}

std::string TInmemNamespace::NormalizeName(const std::string& name) {
  return NZELVYR20::NormalizeName(name);
}

boost::shared_ptr<TInmemClass> TInmemNamespace::FindClass(const std::string& name) const {
  return IsRootName(name) ? rootClass_ : classes_.Find(NormalizeName(name));
}

/// Whatever a look-up fails with counts as "no such class": a name that cannot be entered is
/// found out when the class is added, not when it is made.
boost::shared_ptr<TInmemClass> TInmemNamespace::FindClassToRefresh(const std::string& name) const {
  boost::shared_ptr<TInmemClass> found;
  Swallow([&] { found = FindClass(name); });
  return found;
}

boost::shared_ptr<ICIMClass> TInmemNamespace::AllocateClass(const std::string& name,
                                                            boost::shared_ptr<ICIMClass> superClass,
                                                            TCIMContext) {
  const auto self = Hold();
  if (const auto present = FindClassToRefresh(name)) {
    present->PropagateFromSuperClass();
    return present;
  }
  if (!superClass) superClass = rootClass_;
  const boost::shared_ptr<TInmemClass> made(
      new TInmemClass(shared_from_this(), name, FindInMemory<TInmemClass>(std::move(superClass))),
      &TInmemClass::Delete);
  Track(made);
  made->Initialize();
  return made;
}

void TInmemNamespace::Track(const boost::shared_ptr<TInmemClass>& cimClass) {
  if (madeClasses_.size() == madeClasses_.capacity()) {
    const auto isGone = [](const boost::weak_ptr<TInmemClass>& made) { return made.expired(); };
    madeClasses_.erase(std::remove_if(madeClasses_.begin(), madeClasses_.end(), isGone),
                       madeClasses_.end());
    // Room for as many again: the next search for the gone ones is that far away.
    madeClasses_.reserve(std::max<std::size_t>(8, 2 * madeClasses_.size()));
  }
  madeClasses_.emplace_back(cimClass);
}

boost::shared_ptr<ICIMClass> TInmemNamespace::GetClass(const std::string& name, TCIMContext) {
  auto found = FindClass(name);
  if (!found && !IsRootName(name)) throw Failure::NotFound();
  return found;
}

void TInmemNamespace::AddClass(const boost::shared_ptr<TInmemClass>& cimClass) {
  const std::string& name = cimClass->GetName({});
  std::string key = NormalizeName(name);
  if (classes_.Insert(key, cimClass)) return;
  if (!allowRedefinition_) FailAlreadyDefined("class", name);
  ReplaceClass(std::move(key), cimClass);
}

void TInmemNamespace::ReplaceClass(std::string key,
                                   const boost::shared_ptr<TInmemClass>& cimClass) {
  if (key.find(kNeverRedefined) != std::string::npos) return;
  // The replacement keeps the superclass with which it was made, whatever the replaced class's
  // was, and the subclasses that it takes over are not told: hosts rely on both.
  const auto replaced = classes_.Find(key);
  cimClass->TakeOverSubClasses(*replaced);
  classes_.Put(std::move(key), cimClass);
  if (replaced != cimClass) replaced->LoseStanding();
}

void TInmemNamespace::RemoveClass(const boost::shared_ptr<TInmemClass>&) {}

void TInmemNamespace::AddQualifierDecl(const boost::shared_ptr<TInmemQualifierDecl>& declaration) {
  const std::string& name = declaration->GetName({});
  const std::string key = NormalizeName(name);
  if (qualifierDecls_.Insert(key, declaration)) return;
  if (!allowRedefinition_) FailAlreadyDefined("qualifier", name);
  qualifierDecls_.Put(key, declaration);
}

boost::shared_ptr<ICIMQualifierDecl> TInmemNamespace::AllocateQualifierDecl(
    const std::string& name, const TCIMValue& defaultValue, ICIMQualifierDecl::EScope scope,
    ICIMQualifierDecl::EFlavor flavor, TCIMContext) {
  return boost::make_shared<TInmemQualifierDecl>(shared_from_this(), name, defaultValue, scope,
                                                 flavor);
}

boost::shared_ptr<ICIMQualifierDecl> TInmemNamespace::GetQualifierDecl(const std::string& name,
                                                                       TCIMContext) {
  return qualifierDecls_.Find(NormalizeName(name));
}

void TInmemNamespace::EnumerateQualifierDecls(const TCIMQualifierDeclCallback& callback,
                                              TCIMContext) {
  Enumerate(Hold(), qualifierDecls_, kVisitsAllAndDiscards, callback);
}

void TInmemNamespace::EnumerateRootClasses(const TCIMClassCallback& callback, TCIMContext context) {
  rootClass_->EnumerateSubClasses(callback, false, context);
}

boost::shared_ptr<ICIMInstance> TInmemNamespace::GetInstance(const TCIMReference& path,
                                                             TCIMContext context) {
  const auto self = Hold();
  const auto cimClass =
      boost::static_pointer_cast<TInmemClass>(GetClass(path.GetClassName(), context));
  return cimClass->FindInstance(path, resolution_);
}

void TInmemNamespace::ClearInstances() {
  Enumerate(Hold(), classes_, kVisitsAllAndPasses, [](const auto& cimClass) {
    cimClass->ClearInstances();
    return true;
  });
}

boost::shared_ptr<INamespaceProvider> TInmemNamespace::GetNamespaceProvider(TCIMContext) {
  return TInmemNamespaceProvider::GetInstance();
}

void TInmemNamespace::SetUpcallNamespace(boost::shared_ptr<ICIMNamespace>, TCIMContext) {}

void TInmemNamespace::EnumerateProviders(const TCIMProviderCallback&, TCIMContext) {}

void TInmemNamespace::AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace>, TCIMContext) {
  throw Failure::NotSupported();
}

void TInmemNamespace::Subscribe(boost::shared_ptr<ICIMIndicationFilter>,
                                const TCIMInstanceCallback&, TCIMContext) {
  throw Failure::NotSupported();
}

void TInmemNamespace::DeleteInstance(const TCIMReference&, TCIMContext) {
  throw Failure::NotSupported();
}

void TInmemNamespace::ModifyInstance(const TCIMReference&, TCIMContext, TCIMContext) {
  throw Failure::NotSupported();
}

void TInmemNamespace::ExecuteQuery(const TCIMInstanceCallback&, std::string&, std::string&,
                                   TCIMContext) {
  throw Failure::NotSupported();
}

ICIMNamespace& TInmemNamespace::operator=(ICIMNamespace&) { return *this; }
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): it copies nothing
TInmemNamespace& TInmemNamespace::operator=(const TInmemNamespace&) { return *this; }

}  // namespace NZELVYR20
