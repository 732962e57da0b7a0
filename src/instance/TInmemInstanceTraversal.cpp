#include <new>

#include "Failures.h"
#include "ICIMNamespace.h"
#include "InMemory.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TInmemTraversalCallbacks.h"
#include "TReferrerWalk.h"
#include "TResolution.h"

namespace NZELVYR20 {

namespace {

/// Makes one step of a walk. A reference that leads nowhere, a property that is not there and what
/// else is status 15, be it the callback's, counts as no match: `missed` is then the answer.
/// Another status ends the step.
template <class TStep>
bool Probe(bool missed, TStep step) {
  try {
    return step();
  } catch (const TVYRException& failure) {
    if (!Failure::IsNotFound(failure)) throw Failure::SameStatus(failure);
    return missed;
  }
}

bool IsFarEnd(const ICIMClass* referenced, const boost::shared_ptr<ICIMClass>& resultClass) {
  return referenced != nullptr && referenced->IsSubclassOf(resultClass, TCIMContext());
}

}  // namespace

void TInmemInstance::EnumerateAssociationInstances(const TCIMInstanceCallback& callback,
                                                   const std::string& resultClass,
                                                   const std::string& role, TCIMContext) {
  class_->EnumerateAssociationClasses(TReferencesCallback{shared_from_this(), callback, role},
                                      resultClass, role, TCIMContext());
}

/// All candidates of both walks come from here.
bool TInmemInstance::ExamineCandidateClass(const TCIMInstanceCallback& callback,
                                           const std::string& role,
                                           const boost::shared_ptr<ICIMClass>& assocClass) {
  const TExamineInstanceCallback examine{shared_from_this(), callback};
  const TExamineInstanceWithRoleCallback examineWithRole{shared_from_this(), callback, role};
  const bool followsEnds = callback.target<TAssociatorsExamineCallback>() != nullptr ||
                           callback.target<TAssociatorsExamineWithResultRoleCallback>() != nullptr;
  const auto take = [&](const boost::shared_ptr<TInmemInstance>& assocInstance,
                        const TReferrerWalk& walk) {
    if (!role.empty()) return examineWithRole(assocInstance);
    if (walk.IsCertain()) return ReportCandidateClassInstance(callback, assocInstance, walk);
    return examine(assocInstance);
  };
  InMemory<TInmemClass>(assocClass)->EnumerateReferrers(*this, role, followsEnds, take);
  return true;
}

/// A callback that fails with status 15 is called again for the next reference that points here,
/// after the one that was reported.
bool TInmemInstance::ReportCandidateClassInstance(
    const TCIMInstanceCallback& callback, const boost::shared_ptr<TInmemInstance>& assocInstance,
    const TReferrerWalk& walk) const {
  const bool isReported = Probe(false, [&] {
    callback(assocInstance);
    return true;
  });
  return isReported || ExamineEnds(callback, assocInstance, walk.GetFirstReference() + 1);
}

bool TInmemInstance::ExamineCandidateClassInstance(
    const TCIMInstanceCallback& callback,
    const boost::shared_ptr<ICIMInstance>& assocInstance) const {
  return ExamineEnds(callback, assocInstance, 0);
}

/// Looks at the references at `from` and after it.
bool TInmemInstance::ExamineEnds(const TCIMInstanceCallback& callback,
                                 const boost::shared_ptr<ICIMInstance>& assocInstance,
                                 std::size_t from) const {
  const auto& association = static_cast<const TInmemInstance&>(*assocInstance);
  TEnd end;
  for (std::size_t i = from; association.FindEnd(i, end); i = end.position + 1) {
    const bool isReported = Probe(false, [&] {
      if (!association.LeadsTo(end, *this)) return false;
      callback(assocInstance);
      return true;
    });
    if (isReported) return true;
  }
  association.NoteIfSettled();
  return true;
}

bool TInmemInstance::ExamineCandidateClassInstanceWithRole(
    const TCIMInstanceCallback& callback, const std::string& role,
    const boost::shared_ptr<ICIMInstance>& assocInstance) const {
  const auto& association = static_cast<const TInmemInstance&>(*assocInstance);
  return Probe(true, [&] {
    TEnd end;
    if (association.FindEnd(role, end) && association.LeadsTo(end, *this)) callback(assocInstance);
    return true;
  });
}

void TInmemInstance::EnumerateAssociatedInstances(const TCIMInstanceCallback& callback,
                                                  const std::string& assocClass,
                                                  const std::string& resultClass,
                                                  const std::string& role,
                                                  const std::string& resultRole, TCIMContext) {
  boost::shared_ptr<ICIMClass> result;
  const bool isKnown = Probe(false, [&] {
    const auto nameSpace = class_->GetNamespace(TCIMContext());
    if (nameSpace) result = nameSpace->GetClass(resultClass, TCIMContext());
    return nameSpace != nullptr;
  });
  if (!isKnown) return;
  TCIMInstanceCallback examine;
  if (resultRole.empty()) {
    examine = TAssociatorsExamineCallback{shared_from_this(), callback, role, result};
  } else {
    // With a result role the role is not looked at: hosts rely on that.
    examine =
        TAssociatorsExamineWithResultRoleCallback{shared_from_this(), callback, resultRole, result};
  }
  EnumerateAssociationInstances(examine, assocClass, std::string(), TCIMContext());
}

/// What an index knows of the instance, if it knows all its references.
const TReferences* TInmemInstance::FindSettled() const {
  for (const TInstanceEntry* entry = entries_; entry; entry = entry->nextOfInstance) {
    const TReferences* const references = entry->references.get();
    const bool isSettled =
        references != nullptr && references->IsSettled() && !references->index->IsStale();
    if (isSettled) return references;
  }
  return nullptr;
}

/// Where an index knows the end to lead; empty where it does not.
const TReferences::TLink* TInmemInstance::FindLink(const TEnd& end) const {
  const auto position = static_cast<std::uint32_t>(end.position);
  for (const TInstanceEntry* entry = entries_; entry && !end.derived;
       entry = entry->nextOfInstance) {
    const auto* const link = entry->references ? entry->references->FindLink(position) : nullptr;
    if (link) return link;
  }
  return nullptr;
}

void TInmemInstance::NoteIfSettled() const noexcept {
  for (TInstanceEntry* entry = entries_; entry; entry = entry->nextOfInstance) {
    if (entry->references) entry->references->index->NoteIfSettled(*entry);
  }
}

/// The first reference at `from` or after it.
bool TInmemInstance::FindEnd(std::size_t from, TEnd& end) const {
  if (const TReferences* const settled = FindSettled()) {
    for (const TReferences::TLink& link : settled->links) {
      if (link.position < from) continue;
      end.position = link.position;
      end.referencedClass = link.referencedClass;
      return true;
    }
    return false;
  }
  for (std::size_t i = from; i < CountProperties(); ++i) {
    end.position = i;
    if (TakeEnd(properties_[i].GetValue(TCIMContext()), end)) return true;
  }
  return false;
}

/// The end that the property of this role is, if that is a reference.
bool TInmemInstance::FindEnd(const std::string& role, TEnd& end) const {
  end.position = FindPosition(role);
  if (end.position == CountProperties()) end.derived = DeriveProperty(role);
  const ICIMProperty& property = end.derived ? *end.derived : properties_[end.position];
  return TakeEnd(property.GetValue(TCIMContext()), end);
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): TEnd is this class's own
bool TInmemInstance::TakeEnd(const TCIMValue& value, TEnd& end) const {
  if (!value.IsReference()) return false;
  end.held = value.GetReferencedClass();
  end.referencedClass = end.held.get();
  return true;
}

bool TInmemInstance::LeadsTo(const TEnd& end, const TInmemInstance& target) const {
  if (const auto* const link = FindLink(end)) {
    return link->target->GetEntry().instance.get() == &target;
  }
  return Resolve(end).get() == &target;
}

boost::shared_ptr<ICIMInstance> TInmemInstance::FollowEnd(const TEnd& end) const {
  if (const auto* const link = FindLink(end)) return link->target->GetEntry().instance;
  auto instance = boost::dynamic_pointer_cast<ICIMInstance>(Resolve(end));
  if (!instance) throw Failure::NotFound();
  return instance;
}

/// Asks the host. What it was given by the namespace it need not be asked for again.
boost::shared_ptr<ICIMElement> TInmemInstance::Resolve(const TEnd& end) const {
  const ICIMProperty& property = end.derived ? *end.derived : properties_[end.position];
  const TCIMReference path(property.GetValue(TCIMContext()));
  const std::uint64_t changes = class_->GetReferenceChanges();
  TResolution resolution(GetInmemNamespace());
  auto element = resolution.Resolve(path);
  const bool holds = !end.derived && changes == class_->GetReferenceChanges();
  if (holds) Settle(static_cast<std::uint32_t>(end.position), resolution.GetStanding());
  return element;
}

void TInmemInstance::Settle(std::uint32_t position, const TStanding& standing) const {
  if (!standing.IsCurrent()) return;
  try {
    for (TInstanceEntry* entry = entries_; entry; entry = entry->nextOfInstance) {
      if (!entry->references || entry->references->FindLink(position)) continue;
      entry->references->index->Settle(*entry, position, *standing.entry);
    }
  } catch (const std::bad_alloc&) {
    // The next walk asks again.
  }
}

/// Without a role, a reference that points here, declared with this very class. With one, the
/// property of that name, wherever it points.
bool TInmemInstance::IsOwnEnd(const TInmemInstance& assocInstance, const TEnd& end,
                              const std::string& roleKey) const {
  if (!roleKey.empty()) return assocInstance.declared_->GetEntries()[end.position].key == roleKey;
  return end.referencedClass == class_.get() && assocInstance.LeadsTo(end, *this);
}

bool TInmemInstance::ExamineCandidate(const TCIMInstanceCallback& callback,
                                      const boost::shared_ptr<ICIMClass>& resultClass,
                                      const std::string& role,
                                      const boost::shared_ptr<TInmemInstance>& assocInstance) {
  const std::string roleKey = TInmemNamespace::NormalizeName(role);
  bool isOwnEndFound = false;
  bool result = true;
  TEnd end;
  for (std::size_t i = 0; assocInstance->FindEnd(i, end); i = end.position + 1) {
    const bool isReported = Probe(false, [&] {
      if (!isOwnEndFound && IsOwnEnd(*assocInstance, end, roleKey)) {
        isOwnEndFound = true;
        return false;
      }
      if (!IsFarEnd(end.referencedClass, resultClass)) return false;
      result = callback(assocInstance->FollowEnd(end));
      return true;
    });
    if (isReported) return result;
  }
  return true;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): a step like the others
bool TInmemInstance::ExamineCandidateWithResultRole(
    const TCIMInstanceCallback& callback, const boost::shared_ptr<ICIMClass>& resultClass,
    const std::string& resultRole, const boost::shared_ptr<TInmemInstance>& assocInstance) {
  return Probe(true, [&] {
    TEnd end;
    if (!assocInstance->FindEnd(resultRole, end)) return true;
    if (IsFarEnd(end.referencedClass, resultClass)) callback(assocInstance->FollowEnd(end));
    return true;
  });
}

}  // namespace NZELVYR20
