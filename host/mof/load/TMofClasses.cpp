#include "TMofClasses.h"

#include <algorithm>
#include <utility>

#include "FindOrNothing.h"
#include "FoldName.h"
#include "OrderByNeeds.h"
#include "TMofFault.h"
#include "TVYRException.h"

namespace NZELVYR20 {

std::vector<TMofName> GetNeededClasses(const TMofClass& cimClass) {
  std::vector<TMofName> names;
  if (cimClass.superClass) names.push_back(*cimClass.superClass);
  for (const auto& feature : cimClass.features) {
    const auto* const property = std::get_if<TMofProperty>(&feature);
    if (property != nullptr && property->type.type == TCIMValue::TCIMType::kReference) {
      names.push_back(property->type.referencedClass);
    }
  }
  return names;
}

TMofClasses::TMofClasses(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
                         TMofSummary& summary, TMofQualifiers& qualifiers, TMofLeftOut& leftOut,
                         const std::vector<TMofClass>& classes)
    : namespace_(std::move(nameSpace)),
      diagnostics_(diagnostics),
      summary_(summary),
      qualifiers_(qualifiers),
      leftOut_(leftOut),
      features_(
          namespace_, diagnostics, qualifiers,
          [this](const TMofName& name) { return FindReferencedClass(name); },
          [this](const std::string& name) { return IsKnown(name); }) {
  entries_.reserve(classes.size());
  for (const TMofClass& cimClass : classes) AddEntry(cimClass);
}

void TMofClasses::AddEntry(const TMofClass& cimClass) {
  const TMofName& name = cimClass.name;
  if (FindOrNothing([&] { return namespace_->GetClass(name.text, {}); })) {
    ++summary_.classes.skipped;
    return diagnostics_.Note(name.place,
                             "the class " + name.text + " is there already, and stays as it is");
  }
  if (cimClass.isUnreadable) {
    ++summary_.classes.skipped;
    return leftOut_.Add(FoldName(name.text), name.text);
  }
  if (!byName_.emplace(FoldName(name.text), entries_.size()).second) {
    ++summary_.classes.skipped;
    return diagnostics_.Warning(name.place,
                                "the class " + name.text + " stands twice; the first one counts");
  }
  entries_.push_back({&cimClass, {}});
}

const TMofClasses::TEntry* TMofClasses::FindEntry(const std::string& name) const {
  const auto found = byName_.find(FoldName(name));
  return found == byName_.end() ? nullptr : &entries_[found->second];
}

TMofClasses::TEntry* TMofClasses::FindEntry(const std::string& name) {
  const auto found = byName_.find(FoldName(name));
  return found == byName_.end() ? nullptr : &entries_[found->second];
}

std::vector<std::size_t> TMofClasses::GetNeeds(const TEntry& entry) const {
  std::vector<std::size_t> needs;
  for (const TMofName& name : GetNeededClasses(*entry.syntax)) {
    if (const TEntry* const need = FindEntry(name.text)) {
      needs.push_back(static_cast<std::size_t>(need - entries_.data()));
    }
  }
  return needs;
}

void TMofClasses::Enter(const TProgress& onProgress) {
  const auto order = OrderByNeeds(entries_.size(),
                                  [this](std::size_t index) { return GetNeeds(entries_[index]); });
  std::size_t done = 0;
  for (const std::size_t index : order) {
    EnterAfterSuperClasses(entries_[index]);
    onProgress(++done, order.size());
  }
}

/// In a circle of references the order may put a class before its superclass.
void TMofClasses::EnterAfterSuperClasses(TEntry& entry) {
  std::vector<TEntry*> chain;
  for (TEntry* next = &entry; next != nullptr && next->state == EState::kPending;) {
    if (std::find(chain.begin(), chain.end(), next) != chain.end()) break;
    chain.push_back(next);
    next = next->syntax->superClass ? FindEntry(next->syntax->superClass->text) : nullptr;
  }
  for (auto next = chain.rbegin(); next != chain.rend(); ++next) EnterOne(**next);
}

void TMofClasses::EnterOne(TEntry& entry) {
  const std::string key = FoldName(entry.syntax->name.text);
  try {
    EnterOrReport(entry);
  } catch (const TMofNeed& need) {
    ++summary_.classes.skipped;
    leftOut_.Count(key, need);
  }
  if (entry.state == EState::kEntered) return;
  entry.state = EState::kLeftOut;
  leftOut_.Add(key, entry.syntax->name.text);
}

void TMofClasses::EnterOrReport(TEntry& entry) {
  const TMofName& name = entry.syntax->name;
  try {
    Declare(entry);
    entry.state = EState::kEntered;
    ++summary_.classes.declared;
  } catch (const TMofFault& fault) {
    ++summary_.classes.skipped;
    diagnostics_.Error(fault.GetPlace(), "class " + name.text + ": " + fault.what());
  } catch (const TVYRException& refusal) {
    Refuse(name, refusal.what());
  }
}

void TMofClasses::Refuse(const TMofName& name, const std::string& why) {
  ++summary_.classes.refused;
  summary_.refusals.push_back({name.text, why});
  diagnostics_.Error(name.place, "class " + name.text + " is refused: " + why);
}

void TMofClasses::Declare(TEntry& entry) {
  if (!entry.cimClass) Allocate(entry);
  ICIMClass& cimClass = *entry.cimClass;
  // Qualifiers first: a class takes references only once it is an association.
  qualifiers_.Attach(cimClass, entry.syntax->qualifiers, nullptr);
  for (const auto& feature : entry.syntax->features) {
    std::visit([&](const auto& declared) { features_.Declare(cimClass, declared); }, feature);
  }
  cimClass.AddToNamespace({});
}

void TMofClasses::Allocate(TEntry& entry) {
  entry.cimClass =
      namespace_->AllocateClass(entry.syntax->name.text, FindSuperClass(*entry.syntax), {});
}

boost::shared_ptr<ICIMClass> TMofClasses::FindSuperClass(const TMofClass& cimClass) {
  if (!cimClass.superClass) return {};
  const TEntry* const entry = FindEntry(cimClass.superClass->text);
  if (entry != nullptr && entry->state == EState::kPending) {
    throw TMofFault(cimClass.superClass->place,
                    "it and the superclass " + cimClass.superClass->text + " need each other");
  }
  return FindClass(*cimClass.superClass, entry);
}

boost::shared_ptr<ICIMClass> TMofClasses::FindReferencedClass(const TMofName& name) {
  TEntry* const entry = FindEntry(name.text);
  if (entry != nullptr && entry->state == EState::kPending) {
    if (!entry->cimClass) Allocate(*entry);
    return entry->cimClass;
  }
  return FindClass(name, entry);
}

boost::shared_ptr<ICIMClass> TMofClasses::FindClass(const TMofName& name,
                                                    const TEntry* entry) const {
  if (entry != nullptr && entry->state == EState::kEntered) return entry->cimClass;
  if (auto cimClass = FindOrNothing([&] { return namespace_->GetClass(name.text, {}); })) {
    return cimClass;
  }
  leftOut_.Require(FoldName(name.text));
  leftOut_.Add(FoldName(name.text), name.text);
  throw TMofFault(name.place, "there is no class " + name.text);
}

bool TMofClasses::IsKnown(const std::string& name) const {
  return FindEntry(name) != nullptr || leftOut_.Has(FoldName(name)) ||
         FindOrNothing([&] { return namespace_->GetClass(name, {}); });
}

}  // namespace NZELVYR20
