#include "Failures.h"
#include "ICIMNamespace.h"
#include "InMemory.h"
#include "NormalizedNames.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TInmemTraversalCallbacks.h"
#include "TReferrerWalk.h"

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

/// Whether what the class is referred to by may lead to a far end of the result class.
bool IsFar(const ICIMClass* referencedClass, const boost::shared_ptr<ICIMClass>& resultClass) {
  return referencedClass != nullptr && referencedClass->IsSubclassOf(resultClass, {});
}

}  // namespace

void TInmemInstance::EnumerateAssociationInstances(const TCIMInstanceCallback& callback,
                                                   const std::string& resultClass,
                                                   const std::string& role, TCIMContext) {
  EnumerateReferences(callback, resultClass, role, EFollows::kNothing);
}

void TInmemInstance::EnumerateReferences(const TCIMInstanceCallback& callback,
                                         const std::string& resultClass, const std::string& role,
                                         EFollows follows) {
  class_->EnumerateAssociationClasses(
      TReferencesCallback{shared_from_this(), callback, role, follows}, resultClass, role, {});
}

/// All candidates of both walks come from here.
bool TInmemInstance::ExamineCandidateClass(const TCIMInstanceCallback& callback,
                                           const std::string& role, EFollows follows,
                                           const boost::shared_ptr<ICIMClass>& assocClass) {
  const TExamineInstanceCallback examine{shared_from_this(), callback};
  const TExamineInstanceWithRoleCallback examineWithRole{shared_from_this(), callback, role};
  const auto take = [&](const boost::shared_ptr<TInmemInstance>& assocInstance,
                        const TReferrerWalk& walk) {
    if (!role.empty()) return examineWithRole(assocInstance);
    if (walk.IsCertain()) return ReportCandidateClassInstance(callback, assocInstance, walk);
    return examine(assocInstance);
  };
  InMemory<TInmemClass>(assocClass)->EnumerateReferrers(*this, role, follows, take);
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
  return isReported || ExamineReferences(callback, assocInstance, walk.GetFirstReference() + 1);
}

bool TInmemInstance::ExamineCandidateClassInstance(
    const TCIMInstanceCallback& callback,
    const boost::shared_ptr<ICIMInstance>& assocInstance) const {
  return ExamineReferences(callback, assocInstance, 0);
}

/// Looks at the references at `from` and after it.
bool TInmemInstance::ExamineReferences(const TCIMInstanceCallback& callback,
                                       const boost::shared_ptr<ICIMInstance>& assocInstance,
                                       std::size_t from) const {
  auto& association = static_cast<TInmemInstance&>(*assocInstance);
  TReference reference;
  for (std::size_t i = from; association.FindReference(i, reference); i = reference.position + 1) {
    const bool isReported = Probe(false, [&] {
      if (!association.LeadsTo(reference, *this)) return false;
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
  auto& association = static_cast<TInmemInstance&>(*assocInstance);
  return Probe(true, [&] {
    TReference reference;
    const bool leadsHere =
        association.FindReference(role, reference) && association.LeadsTo(reference, *this);
    if (leadsHere) callback(assocInstance);
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
    const auto nameSpace = class_->GetNamespace({});
    if (nameSpace) result = nameSpace->GetClass(resultClass, {});
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
  EnumerateReferences(examine, assocClass, std::string(), EFollows::kFarEnds);
}

/// Which reference counts as the origin's own. Without a role, one that points here, declared with
/// this very class. With one, the property of that name, wherever it points.
bool TInmemInstance::IsNear(TInmemInstance& assocInstance, const TReference& reference,
                            const std::string& roleKey) const {
  if (!roleKey.empty()) {
    return assocInstance.GetDeclared()->GetEntries()[reference.position].key == roleKey;
  }
  return reference.referencedClass == class_.get() && assocInstance.LeadsTo(reference, *this);
}

bool TInmemInstance::ExamineCandidate(const TCIMInstanceCallback& callback,
                                      const boost::shared_ptr<ICIMClass>& resultClass,
                                      const std::string& role,
                                      const boost::shared_ptr<TInmemInstance>& assocInstance) {
  const std::string roleKey = NormalizeName(role);
  bool isNearFound = false;
  bool result = true;
  TReference reference;
  for (std::size_t i = 0; assocInstance->FindReference(i, reference); i = reference.position + 1) {
    const bool isReported = Probe(false, [&] {
      if (!isNearFound && IsNear(*assocInstance, reference, roleKey)) {
        isNearFound = true;
        return false;
      }
      if (!IsFar(reference.referencedClass, resultClass)) return false;
      result = callback(assocInstance->Follow(reference));
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
    TReference reference;
    if (!assocInstance->FindReference(resultRole, reference)) return true;
    if (IsFar(reference.referencedClass, resultClass)) callback(assocInstance->Follow(reference));
    return true;
  });
}

}  // namespace NZELVYR20
