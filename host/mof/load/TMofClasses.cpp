#include "TMofClasses.h"

#include <algorithm>
#include <utility>

#include "FindOrNothing.h"
#include "FoldName.h"
#include "OrderByNeeds.h"
#include "TMofFault.h"
#include "TVYRException.h"

namespace NZELVYR20 {

namespace {

std::vector<TMofName> GetReferencedClasses(const TMofClass& cimClass) {
  std::vector<TMofName> names;
  for (const auto& feature : cimClass.features) {
    const auto* const property = std::get_if<TMofProperty>(&feature);
    if (property != nullptr && property->type.type == TCIMValue::TCIMType::kReference) {
      names.push_back(property->type.referencedClass);
    }
  }
  return names;
}

std::vector<TMofName> GetSuperClass(const TMofClass& cimClass) {
  if (cimClass.superClass) return {*cimClass.superClass};
  return {};
}

/// Where the numbers stand in a group, which ascends; of those that do not, nothing.
std::vector<std::size_t> GetPlaces(const std::vector<std::size_t>& numbers,
                                   const std::vector<std::size_t>& group) {
  std::vector<std::size_t> places;
  for (const std::size_t number : numbers) {
    const auto place = std::lower_bound(group.begin(), group.end(), number);
    if (place == group.end() || *place != number) continue;
    places.push_back(static_cast<std::size_t>(place - group.begin()));
  }
  return places;
}

TMofFault NeedEachOther(const TMofName& name) {
  return {name.GetPlace(), "it and the class " + name.GetText() + " need each other"};
}

}  // namespace

std::vector<TMofName> GetNeededClasses(const TMofClass& cimClass) {
  std::vector<TMofName> names = GetReferencedClasses(cimClass);
  if (cimClass.superClass) names.insert(names.begin(), *cimClass.superClass);
  return names;
}

TMofClasses::TMofClasses(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
                         TMofSummary& summary, TMofQualifiers& qualifiers, TMofLeftOut& leftOut,
                         TMofReferenceClasses& referenceClasses,
                         const std::vector<TMofClass>& classes)
    : namespace_(std::move(nameSpace)),
      diagnostics_(diagnostics),
      summary_(summary),
      qualifiers_(qualifiers),
      leftOut_(leftOut),
      features_(
          namespace_, diagnostics, qualifiers, referenceClasses,
          [this](const TMofName& name) { return FindClass(name, EState::kAllocated); },
          [this](const std::string& name) { return IsKnown(name); }) {
  entries_.reserve(classes.size());
  for (const TMofClass& cimClass : classes) AddEntry(cimClass);
}

void TMofClasses::AddEntry(const TMofClass& cimClass) {
  const TMofName& name = cimClass.name;
  if (FindOrNothing([&] { return namespace_->GetClass(name.GetText(), {}); })) {
    ++summary_.classes.skipped;
    return diagnostics_.Note(
        name.GetPlace(), "the class " + name.GetText() + " is there already, and stays as it is");
  }
  if (cimClass.isUnreadable) {
    ++summary_.classes.skipped;
    return leftOut_.Add(FoldName(name.GetText()), name.GetText());
  }
  if (!byName_.emplace(FoldName(name.GetText()), entries_.size()).second) {
    ++summary_.classes.skipped;
    return diagnostics_.Warning(
        name.GetPlace(), "the class " + name.GetText() + " stands twice; the first one counts");
  }
  entries_.push_back({&cimClass, {}});
}

const TMofClasses::TEntry* TMofClasses::FindEntry(const std::string& name) const {
  const auto found = byName_.find(FoldName(name));
  return found == byName_.end() ? nullptr : &entries_[found->second];
}

std::vector<std::size_t> TMofClasses::GetNeeds(const std::vector<TMofName>& names) const {
  std::vector<std::size_t> needs;
  for (const TMofName& name : names) {
    if (const TEntry* const need = FindEntry(name.GetText())) {
      needs.push_back(static_cast<std::size_t>(need - entries_.data()));
    }
  }
  return needs;
}

void TMofClasses::Enter(const TProgress& onProgress) {
  std::size_t done = 0;
  for (const auto& group : GroupByNeeds(entries_.size(), [this](std::size_t number) {
         return GetNeeds(GetNeededClasses(*entries_[number].syntax));
       })) {
    EnterGroup(group);
    done += group.size();
    onProgress(done, entries_.size());
  }
}

/// A class alone, as a rule, or those of a circle: everything is tried before any is added.
void TMofClasses::EnterGroup(const std::vector<std::size_t>& group) {
  DeclareGroup(group);
  for (const std::size_t number : group) {
    TEntry& entry = entries_[number];
    Try(entry, [&] { entry.cimClass->Validate({}); });
  }
  const auto getSuperClass = [&](std::size_t place) {
    return GetPlaces(GetNeeds(GetSuperClass(*entries_[group[place]].syntax)), group);
  };
  for (const std::size_t place : OrderByNeeds(group.size(), getSuperClass)) {
    TEntry& entry = entries_[group[place]];
    Try(entry, [&] {
      RequireAll(group);
      Add(entry);
    });
  }
}

/// To allocate a class and to declare what it has are two steps, so that those of a circle can
/// refer to each other: 0 and 1 of the group's first, 2 and 3 of its next.
void TMofClasses::DeclareGroup(const std::vector<std::size_t>& group) {
  for (const std::size_t step : OrderByNeeds(
           2 * group.size(), [&](std::size_t each) { return GetNeededSteps(each, group); })) {
    TEntry& entry = entries_[group[step / 2]];
    Try(entry, [&] { step % 2 == 0 ? Allocate(entry) : Declare(entry); });
  }
}

/// A class takes over what its superclass has declared when it is allocated.
std::vector<std::size_t> TMofClasses::GetNeededSteps(std::size_t step,
                                                     const std::vector<std::size_t>& group) const {
  const TMofClass& cimClass = *entries_[group[step / 2]].syntax;
  std::vector<std::size_t> steps;
  if (step % 2 == 0) {
    for (const std::size_t place : GetPlaces(GetNeeds(GetSuperClass(cimClass)), group)) {
      steps.push_back(2 * place + 1);
    }
    return steps;
  }
  steps.push_back(step - 1);
  for (const std::size_t place : GetPlaces(GetNeeds(GetReferencedClasses(cimClass)), group)) {
    steps.push_back(2 * place);
  }
  return steps;
}

/// Where the step fails the class is left out, and has no further ones.
template <class TStep>
void TMofClasses::Try(TEntry& entry, const TStep& step) {
  if (entry.state == EState::kLeftOut) return;
  const TMofName& name = entry.syntax->name;
  const std::string key = FoldName(name.GetText());
  try {
    return step();
  } catch (const TMofNeed& need) {
    ++summary_.classes.skipped;
    leftOut_.Count(key, need);
  } catch (const TMofFault& fault) {
    ++summary_.classes.skipped;
    diagnostics_.Error(fault.GetPlace(), "class " + name.GetText() + ": " + fault.what());
  } catch (const TVYRException& refusal) {
    Refuse(name, refusal.what());
  }
  entry.state = EState::kLeftOut;
  leftOut_.Add(key, name.GetText());
}

void TMofClasses::Refuse(const TMofName& name, const std::string& why) {
  ++summary_.classes.refused;
  summary_.refusals.push_back({name.GetText(), why});
  diagnostics_.Error(name.GetPlace(), "class " + name.GetText() + " is refused: " + why);
}

void TMofClasses::Allocate(TEntry& entry) {
  const std::optional<TMofName>& superClass = entry.syntax->superClass;
  entry.cimClass = namespace_->AllocateClass(
      entry.syntax->name.GetText(),
      superClass ? FindClass(*superClass, EState::kDeclared) : boost::shared_ptr<ICIMClass>(), {});
  entry.state = EState::kAllocated;
}

void TMofClasses::Declare(TEntry& entry) {
  ICIMClass& cimClass = *entry.cimClass;
  // Qualifiers first: a class takes references only once it is an association.
  qualifiers_.Attach(cimClass, entry.syntax->qualifiers, nullptr);
  for (const auto& feature : entry.syntax->features) {
    std::visit([&](const auto& declared) { features_.Declare(cimClass, declared); }, feature);
  }
  entry.state = EState::kDeclared;
}

/// Each of a group needs all the others.
void TMofClasses::RequireAll(const std::vector<std::size_t>& group) const {
  for (const std::size_t number : group) {
    const TEntry& entry = entries_[number];
    if (entry.state == EState::kLeftOut) leftOut_.Require(FoldName(entry.syntax->name.GetText()));
  }
}

void TMofClasses::Add(TEntry& entry) {
  entry.cimClass->AddToNamespace({});
  entry.state = EState::kEntered;
  ++summary_.classes.declared;
}

/// A class of the batch that has come as far as `least`, or one that was there before.
boost::shared_ptr<ICIMClass> TMofClasses::FindClass(const TMofName& name, EState least) const {
  const TEntry* const entry = FindEntry(name.GetText());
  if (entry != nullptr && entry->state >= least) return entry->cimClass;
  if (entry != nullptr && entry->state != EState::kLeftOut) throw NeedEachOther(name);
  if (auto cimClass = FindOrNothing([&] { return namespace_->GetClass(name.GetText(), {}); })) {
    return cimClass;
  }
  leftOut_.Require(FoldName(name.GetText()));
  leftOut_.Add(FoldName(name.GetText()), name.GetText());
  throw TMofFault(name.GetPlace(), "there is no class " + name.GetText());
}

bool TMofClasses::IsKnown(const std::string& name) const {
  return FindEntry(name) != nullptr || leftOut_.Has(FoldName(name)) ||
         FindOrNothing([&] { return namespace_->GetClass(name, {}); });
}

}  // namespace NZELVYR20
