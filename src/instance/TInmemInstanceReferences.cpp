#include <algorithm>
#include <new>

#include "Failures.h"
#include "ICIMNamespace.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"
#include "TReferenceIndex.h"
#include "TResolution.h"

namespace NZELVYR20 {

boost::shared_ptr<TInmemNamespace> TInmemInstance::GetInmemNamespace() const {
  return boost::static_pointer_cast<TInmemNamespace>(class_->GetNamespace({}));
}

std::optional<std::size_t> TInmemInstance::CountReferencesOf(const TIndexedInstance& instance) {
  return static_cast<const TInmemInstance&>(instance).CountReferences();
}

std::optional<std::size_t> TInmemInstance::CountReferences() const {
  std::size_t count = 0;
  bool mayHave = false;
  for (std::size_t i = 0; i < CountProperties(); ++i) {
    const bool isDeclared = GetDeclared()->GetEntries()[i].declaration->IsReference();
    if (!isDeclared && !FindOwnValue(i)) continue;
    const bool isReference = GetValueAt(i).IsReference();
    count += isReference ? 1 : 0;
    mayHave |= isReference || isDeclared;
  }
  return mayHave ? std::optional(count) : std::nullopt;
}

void TInmemInstance::NoteReferenceChange(std::size_t position) noexcept {
  class_->NoteReferenceChange();
  for (TInstanceEntry& entry : GetEntries()) {
    if (!entry.references) continue;
    entry.references->index->Unsettle(entry, static_cast<std::uint32_t>(position));
  }
}

/// The class of the reference that is the property's own value; empty where there is none, or one
/// of another implementation.
TInmemClass* TInmemInstance::FindReferencedClass(std::size_t position) const {
  const TCIMValue* const own = FindOwnValue(position);
  if (!own || !own->IsReference()) return nullptr;
  return dynamic_cast<TInmemClass*>(own->GetReferencedClass().get());
}

/// Something must be there at each end. Where, matters for the index of references alone.
TFoundReferences TInmemInstance::ValidateReferences() const {
  TFoundReferences found;
  found.changes = class_->GetReferenceChanges();
  TResolution resolution(GetInmemNamespace());
  for (std::size_t i = 0; i < CountProperties(); ++i) {
    const TCIMValue& value = GetValueAt(i);
    if (!value.IsReference()) continue;
    const TCIMReference path(value);
    try {
      resolution.Resolve(path);
    } catch (const TVYRException& failure) {
      if (Failure::IsNotFound(failure)) {
        LogValidationFailure("Inmem: Reference " + path.GetPath() + " doesn't point to anything!");
      }
      throw Failure::SameStatus(failure);
    }
    TInmemClass* const referencedClass = FindReferencedClass(i);
    if (!referencedClass || !resolution.GetStanding().IsCurrent()) continue;
    found.references.push_back(
        {static_cast<std::uint32_t>(i), referencedClass, resolution.GetStanding()});
  }
  return found;
}

/// What an index knows of the instance, if it knows all its references.
const TReferences* TInmemInstance::FindSettled() const {
  for (const TInstanceEntry& entry : GetEntries()) {
    const TReferences* const references = entry.references.get();
    const bool isSettled =
        references != nullptr && references->IsSettled() && !references->index->IsStale();
    if (isSettled) return references;
  }
  return nullptr;
}

/// What an index knows of the reference; empty where it knows nothing.
const TReferences::TLink* TInmemInstance::FindLink(const TReference& reference) const {
  if (reference.derived) return nullptr;
  const auto position = static_cast<std::uint32_t>(reference.position);
  for (const TInstanceEntry& entry : GetEntries()) {
    const auto* const link = entry.references ? entry.references->FindLink(position) : nullptr;
    if (link) return link;
  }
  return nullptr;
}

void TInmemInstance::NoteIfSettled() noexcept {
  for (TInstanceEntry& entry : GetEntries()) {
    if (entry.references) entry.references->index->NoteIfSettled(entry);
  }
}

/// The first reference at `from` or after it.
bool TInmemInstance::FindReference(std::size_t from, TReference& reference) const {
  if (const TReferences* const settled = FindSettled()) {
    for (const TReferences::TLink& link : settled->links) {
      if (link.position < from) continue;
      reference.position = link.position;
      reference.referencedClass = link.referencedClass;
      return true;
    }
    return false;
  }
  for (std::size_t i = from; i < CountProperties(); ++i) {
    reference.position = i;
    if (Take(GetValueAt(i), reference)) return true;
  }
  return false;
}

/// The property of this role, if it is a reference.
bool TInmemInstance::FindReference(const std::string& role, TReference& reference) const {
  reference.position = FindPosition(role);
  if (reference.position == CountProperties()) reference.derived = DeriveProperty(role);
  return Take(GetValueOf(reference), reference);
}

const TCIMValue& TInmemInstance::GetValueOf(const TReference& reference) const {
  return reference.derived ? reference.derived->GetValue({}) : GetValueAt(reference.position);
}

bool TInmemInstance::Take(const TCIMValue& value, TReference& reference) {
  if (!value.IsReference()) return false;
  reference.heldClass = value.GetReferencedClass();
  reference.referencedClass = reference.heldClass.get();
  return true;
}

bool TInmemInstance::LeadsTo(const TReference& reference, const TInmemInstance& origin) {
  if (const auto* const link = FindLink(reference)) {
    return link->end->entry.instance.get() == &origin;
  }
  return Resolve(reference).get() == &origin;
}

boost::shared_ptr<ICIMInstance> TInmemInstance::Follow(const TReference& reference) {
  if (const auto* const link = FindLink(reference)) {
    return boost::static_pointer_cast<TInmemInstance>(link->end->entry.instance);
  }
  auto instance = boost::dynamic_pointer_cast<ICIMInstance>(Resolve(reference));
  if (!instance) throw Failure::NotFound();
  return instance;
}

/// Asks the host. What it was given by the namespace it need not be asked for again (rule 3 of the
/// index), unless a reference changed while it was asked.
boost::shared_ptr<ICIMElement> TInmemInstance::Resolve(const TReference& reference) {
  const TCIMReference path(GetValueOf(reference));
  const std::uint64_t changes = class_->GetReferenceChanges();
  TResolution resolution(GetInmemNamespace());
  auto element = resolution.Resolve(path);
  const bool holds = !reference.derived && changes == class_->GetReferenceChanges();
  if (holds) Settle(static_cast<std::uint32_t>(reference.position), resolution.GetStanding());
  return element;
}

void TInmemInstance::Settle(std::uint32_t position, const TStanding& standing) {
  TInmemClass* const referencedClass = FindReferencedClass(position);
  if (!referencedClass || !standing.IsCurrent()) return;
  try {
    for (TInstanceEntry& entry : GetEntries()) {
      if (!entry.references || entry.references->FindLink(position)) continue;
      entry.references->index->Settle(entry, position, *referencedClass, *standing.entry);
    }
  } catch (const std::bad_alloc&) {
    // The next walk asks again.
  }
}

}  // namespace NZELVYR20
