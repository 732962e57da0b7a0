#include "Failures.h"
#include "ICIMNamespace.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TInmemTraversalCallbacks.h"

namespace NZELVYR20 {

namespace {

boost::shared_ptr<ICIMInstance> AsInstance(const boost::shared_ptr<ICIMElement>& element) {
  auto instance = boost::dynamic_pointer_cast<ICIMInstance>(element);
  if (!instance) throw Failure::NotFound();
  return instance;
}

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

/// The property of an association instance that stands for this role.
boost::shared_ptr<TInmemPropertyBase> GetEnd(const ICIMInstance& assocInstance,
                                             const std::string& role) {
  return InMemory<TInmemPropertyBase>(assocInstance.GetProperty(role, TCIMContext()));
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
  const auto take = [&](const boost::shared_ptr<TInmemInstance>& assocInstance, bool isCertain) {
    if (!role.empty()) return examineWithRole(assocInstance);
    if (isCertain) return ReportCandidateClassInstance(callback, assocInstance);
    return examine(assocInstance);
  };
  InMemory<TInmemClass>(assocClass)->EnumerateReferrers(*this, role, followsEnds, take);
  return true;
}

/// A callback that fails with status 15 is called again for the next reference that points here.
bool TInmemInstance::ReportCandidateClassInstance(
    const TCIMInstanceCallback& callback, const boost::shared_ptr<TInmemInstance>& assocInstance) {
  const bool isReported = Probe(false, [&] {
    callback(assocInstance);
    return true;
  });
  return isReported || ExamineProperties(callback, assocInstance, 1);
}

bool TInmemInstance::ExamineCandidateClassInstance(
    const TCIMInstanceCallback& callback, const boost::shared_ptr<ICIMInstance>& assocInstance) {
  return ExamineProperties(callback, InMemory<TInmemInstance>(assocInstance), 0);
}

/// Goes on behind so many references that point here.
bool TInmemInstance::ExamineProperties(const TCIMInstanceCallback& callback,
                                       const boost::shared_ptr<TInmemInstance>& assocInstance,
                                       std::size_t hitsBefore) {
  for (const TInmemInstanceProperty& property : assocInstance->properties_) {
    const bool isReported = Probe(false, [&] {
      if (!property.GetValue(TCIMContext()).IsReference()) return false;
      if (property.FollowReference().get() != this) return false;
      if (hitsBefore > 0) return --hitsBefore, false;
      callback(assocInstance);
      return true;
    });
    if (isReported) break;
  }
  return true;
}

bool TInmemInstance::ExamineCandidateClassInstanceWithRole(
    const TCIMInstanceCallback& callback, const std::string& role,
    const boost::shared_ptr<ICIMInstance>& assocInstance) {
  return Probe(true, [&] {
    const auto property = GetEnd(*assocInstance, role);
    const bool isReference = property->GetValue(TCIMContext()).IsReference();
    if (isReference && property->FollowReference().get() == this) callback(assocInstance);
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

/// The first reference at `from` or behind it. An index knows the ends of an association instance
/// without a look at its values.
bool TInmemInstance::FindEnd(std::size_t from, TReferences::TEdge& end) const {
  const TReferences* const settled = GetSettledReferences();
  if (settled && settled->areOwn) {
    for (const TReferences::TEdge& edge : settled->edges) {
      if (edge.position < from) continue;
      end = edge;
      return true;
    }
    return false;
  }
  for (std::size_t i = from; i < properties_.GetCount(); ++i) {
    const TCIMValue& value = properties_[i].GetValue(TCIMContext());
    if (!value.IsReference()) continue;
    end = {static_cast<std::uint32_t>(i), 0, value.GetReferencedClass().get(), nullptr};
    return true;
  }
  return false;
}

boost::shared_ptr<ICIMElement> TInmemInstance::FollowEnd(const TReferences::TEdge& end) const {
  if (!end.target) return properties_[end.position].FollowReference();
  auto instance = Follow(*end.target);
  if (!instance) throw Failure::NotFound();
  return instance;
}

/// Without a role, a reference that points here, declared with this very class. With one, the
/// property of that name, wherever it points.
bool TInmemInstance::IsOwnEnd(const TInmemInstance& assocInstance, const TReferences::TEdge& end,
                              const std::string& roleKey) const {
  if (!roleKey.empty()) return assocInstance.declared_->GetEntries()[end.position].key == roleKey;
  return end.referencedClass == class_.get() && assocInstance.FollowEnd(end).get() == this;
}

bool TInmemInstance::ExamineCandidate(const TCIMInstanceCallback& callback,
                                      const boost::shared_ptr<ICIMClass>& resultClass,
                                      const std::string& role,
                                      const boost::shared_ptr<TInmemInstance>& assocInstance) {
  const std::string roleKey = TInmemNamespace::NormalizeName(role);
  bool isOwnEndFound = false;
  bool result = true;
  TReferences::TEdge end{};
  for (std::size_t i = 0; assocInstance->FindEnd(i, end); i = end.position + 1) {
    const bool isReported = Probe(false, [&] {
      if (!isOwnEndFound && IsOwnEnd(*assocInstance, end, roleKey)) {
        isOwnEndFound = true;
        return false;
      }
      if (!IsFarEnd(end.referencedClass, resultClass)) return false;
      result = callback(AsInstance(assocInstance->FollowEnd(end)));
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
    const auto property = GetEnd(*assocInstance, resultRole);
    const TCIMValue& value = property->GetValue(TCIMContext());
    if (value.IsReference() && IsFarEnd(value.GetReferencedClass().get(), resultClass)) {
      callback(AsInstance(property->FollowReference()));
    }
    return true;
  });
}

}  // namespace NZELVYR20
