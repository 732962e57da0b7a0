#include <algorithm>
#include <deque>
#include <utility>

#include "Failures.h"
#include "Names.h"
#include "NormalizedNames.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TReferrerWalk.h"

namespace NZELVYR20 {

namespace {

/// An empty filter class restricts nothing.
bool PassesFilter(const ICIMClass& cimClass, const boost::shared_ptr<ICIMClass>& filterClass) {
  return !filterClass || cimClass.IsSubclassOf(filterClass, {});
}

}  // namespace

bool TInmemClass::IsSubclassOf(boost::shared_ptr<const ICIMClass> other, TCIMContext) const {
  const std::string& name = other->GetName({});
  if (name_ == name) return true;
  for (auto current = superClass_.lock(); current; current = current->superClass_.lock()) {
    if (current->IsRootClass({})) return false;
    if (current->name_ == name) return true;
  }
  return false;
}

/// One class on the way down, held, and what is left of its subclasses.
struct TInmemClass::TLevel {
  TLevel(const boost::shared_ptr<TInmemClass>& parent, const void* walk)
      : cimClass(parent),
        cursor(parent->subClasses_.Get(), TSubClasses::TTable::EAdded::kSkipped, walk) {}

  boost::shared_ptr<TInmemClass> cimClass;
  TSubClasses::TTable::TCursor cursor;
};

/// Calls `visit` for every class below this one, each before its descendants and these before the
/// next sibling. The way down lies on the heap: hierarchies may be deeper than the stack. A class
/// that is on the way already is not entered again, since one that replaces its own ancestor takes
/// that one's subclasses over.
template <class TVisit>
void TInmemClass::WalkDown(TVisit visit) {
  std::deque<TLevel> way;
  way.emplace_back(shared_from_this(), &way);
  while (!way.empty()) {
    auto& cursor = way.back().cursor;
    const EStep step = cursor.Next() ? visit(cursor.GetCurrent()) : EStep::kUp;
    if (step == EStep::kUp) {
      way.pop_back();
    } else if (step == EStep::kDown) {
      const auto& subClass = cursor.GetCurrent();
      const auto& below = subClass->subClasses_.Get();
      if (!below.IsEmpty() && !below.IsEnteredBy(&way)) way.emplace_back(subClass, &way);
    }
  }
}

void TInmemClass::EnumerateSubClasses(const TCIMClassCallback& callback, bool deep, TCIMContext) {
  if (!deep) return Enumerate(shared_from_this(), subClasses_.Get(), kStopsAndDiscards, callback);
  WalkDown([&](const boost::shared_ptr<TInmemClass>& subClass) {
    bool isWanted = false;  // nor are a class's descendants when the callback throws
    const auto call = [&] { return isWanted = callback(subClass); };
    if (!CallBack(kStopsAndDiscards, call)) return EStep::kUp;
    return isWanted ? EStep::kDown : EStep::kNext;
  });
}

void TInmemClass::EnumerateInstances(const TCIMInstanceCallback& callback, bool deep, TCIMContext) {
  const auto self = shared_from_this();
  const auto visit = [&](TInstanceTable::TPointer instance) {
    return callback(boost::static_pointer_cast<TInmemInstance>(std::move(instance)));
  };
  Enumerate(self, instances_, kVisitsAllAndDiscards, visit);
  if (!deep) return;
  WalkDown([&](const boost::shared_ptr<TInmemClass>& subClass) {
    Enumerate(subClass, subClass->instances_, kVisitsAllAndDiscards, visit);
    return EStep::kDown;
  });
}

void TInmemClass::EnumerateReferrers(TInmemInstance& origin, const std::string& role,
                                     EFollows follows, const TReferrerCallback& callback) {
  const auto self = shared_from_this();
  const std::string roleKey = FoldName(role);
  TReferrerWalk walk(instances_, origin, roleKey, follows);
  while (const auto referrer = boost::static_pointer_cast<TInmemInstance>(walk.Next())) {
    CallBack(kVisitsAllAndDiscards, [&] { return callback(referrer, walk); });
  }
}

boost::shared_ptr<ICIMClass> TInmemClass::FindFilterClass(const std::string& name) const {
  if (name.empty()) return {};
  const auto nameSpace = namespace_.lock();
  if (!nameSpace) throw Failure::NotFound();
  return nameSpace->GetClass(name, {});
}

/// Whether the association's property of that name, if it has one, refers to this very class.
bool TInmemClass::RefersTo(ICIMClass& association, const std::string& role) const {
  try {
    const auto declaration = association.GetPropertyDecl(role, {});
    const TCIMValue& value = declaration->GetDefaultValue({});
    return value.IsReference() && value.GetReferencedClass().get() == this;
  } catch (const TVYRException& failure) {
    if (!Failure::IsNotFound(failure)) throw;
    return false;
  }
}

void TInmemClass::EnumerateAssociationClasses(const TCIMClassCallback& callback,
                                              const std::string& resultClass,
                                              const std::string& role, TCIMContext) {
  const auto filterClass = FindFilterClass(resultClass);
  const auto self = shared_from_this();  // as all walks do, here too when it has gone on upward
  auto current = self;
  do {
    const auto held = current;  // a cursor goes before its table
    decltype(associationClasses_)::TCursor cursor(current->associationClasses_);
    while (const auto association = cursor.Next()) {
      if (!PassesFilter(*association, filterClass)) continue;
      if (!role.empty() && !current->RefersTo(*association, role)) continue;
      if (!callback(association)) return;
    }
    current = current->superClass_.lock();
  } while (current && !current->IsRootClass({}));
}

void TInmemClass::EnumerateAssociatedClasses(const TCIMClassCallback& callback,
                                             const std::string& assocClass,
                                             const std::string& resultClass,
                                             const std::string& role, const std::string& resultRole,
                                             TCIMContext) {
  const auto self = shared_from_this();
  const auto assocFilter = FindFilterClass(assocClass);
  const auto resultFilter = FindFilterClass(resultClass);
  decltype(associationClasses_)::TCursor cursor(associationClasses_);
  while (const auto association = cursor.Next()) {
    if (!PassesFilter(*association, assocFilter)) continue;
    if (!role.empty() && !RefersTo(*association, role)) continue;
    for (const auto& farEnd : GetFarEnds(*association, resultFilter, role, resultRole)) {
      if (!callback(farEnd)) return;
    }
  }
}

/// The classes at the far ends of one association, each once. This class's own end is the property
/// named by the role, else the first that refers to this very class and is not the result's.
TInmemClass::TClassList TInmemClass::GetFarEnds(TInmemClass& association,
                                                const boost::shared_ptr<ICIMClass>& resultClass,
                                                const std::string& role,
                                                const std::string& resultRole) const {
  const std::string roleKey = NormalizeName(role);
  const std::string resultRoleKey = NormalizeName(resultRole);
  bool isOwnEndFound = false;
  TClassList farEnds;
  TPropertyDecls::TCursor cursor(association.propertyDecls_);
  while (cursor.Next()) {
    const auto referenced = cursor.GetCurrent()->GetReferencedClass();
    if (!referenced) continue;
    const std::string key = FoldName(cursor.GetCurrent()->GetGivenName());
    const bool isOwnEnd =
        roleKey.empty() ? referenced.get() == this && key != resultRoleKey : key == roleKey;
    if (!isOwnEndFound && isOwnEnd) {
      isOwnEndFound = true;
      continue;
    }
    if (!resultRoleKey.empty() && key != resultRoleKey) continue;
    if (!PassesFilter(*referenced, resultClass)) continue;
    if (std::find(farEnds.begin(), farEnds.end(), referenced) == farEnds.end()) {
      farEnds.push_back(referenced);
    }
  }
  return farEnds;
}

}  // namespace NZELVYR20
