#include "TInmemQualifierSet.h"

#include <new>
#include <utility>
#include <vector>

#include "Failures.h"
#include "InMemory.h"
#include "NormalizedNames.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

namespace {

bool HasFlavor(const ICIMQualifier& qualifier, ICIMQualifierDecl::EFlavor flavor) {
  return (qualifier.GetFlavor({}) & flavor) != 0;
}

}  // namespace

void TInmemQualifierSet::Add(boost::shared_ptr<ICIMQualifier> qualifier) {
  std::string key = NormalizeName(qualifier->GetName({}));
  const auto attached = qualifiers_.Find(key);
  if (attached && !HasFlavor(*attached, ICIMQualifierDecl::kOverridable)) {
    if (Conflicts(*attached, *qualifier)) throw Failure::QualifierConflict();
    return;  // the same again: the attached object stays
  }
  auto added = InMemory<TInmemQualifier>(std::move(qualifier));
  const TInmemQualifier* const now = added.get();
  const bool isKey = key == QualifierKey::kKey;
  qualifiers_.Put(std::move(key), std::move(added));
  missing_ = 0;
  if (isKey) key_ = now;
}

bool TInmemQualifierSet::Conflicts(const ICIMQualifier& attached,
                                   const ICIMQualifier& added) const {
  if (added.GetValue({}) != attached.GetValue({})) return true;
  return match_ == EMatch::kValueAndFlavor && added.GetFlavor({}) != attached.GetFlavor({});
}

void TInmemQualifierSet::Remove(const std::string& name) {
  if (!qualifiers_.Erase(NormalizeName(name))) throw Failure::NotFound();
  NoteChange();
}

boost::shared_ptr<TInmemQualifier> TInmemQualifierSet::Find(const std::string& name) const {
  return qualifiers_.Find(NormalizeName(name));
}

boost::shared_ptr<TInmemQualifier> TInmemQualifierSet::Find(const std::string& name,
                                                            bool& found) const {
  found = true;
  auto qualifier = Find(name);
  if (!qualifier) found = false;
  return qualifier;
}

bool TInmemQualifierSet::IsFlagSet(std::string_view key) const {
  const auto qualifier = FindKey(key);
  return qualifier && IsTrue(*qualifier);
}

bool TInmemQualifierSet::IsTrue(const TInmemQualifier& qualifier) {
  const TCIMValue& value = qualifier.GetValue({});
  return !value.IsNull() && static_cast<bool>(value);
}

TInmemQualifierSet::TInherited TInmemQualifierSet::GetInherited(
    const TInmemQualifierSet& superClass, const boost::shared_ptr<const ICIMNamedElement>& owner,
    EInherit inherit) const {
  std::vector<boost::shared_ptr<TInmemQualifier>> passing;
  superClass.qualifiers_.ForEach(
      [&](const std::string& key, const boost::shared_ptr<TInmemQualifier>& qualifier) {
        if (inherit == EInherit::kAllButAbstract && key == QualifierKey::kAbstract) return;
        if (HasFlavor(*qualifier, ICIMQualifierDecl::kToSubclass)) passing.push_back(qualifier);
      });
  TInherited copies;
  for (const auto& qualifier : passing) {
    const std::string key = NormalizeName(qualifier->GetName({}));
    if (!FindKey(key)) copies.Add(key, qualifier->PassDown(owner));
  }
  return copies;
}

void TInmemQualifierSet::Insert(TInherited copies) noexcept {
  qualifiers_.Insert(std::move(copies));
  NoteChange();
}

void TInmemQualifierSet::ReleaseClasses() noexcept {
  try {
    qualifiers_.ReplaceEach([](const TInmemQualifier& qualifier) {
      return qualifier.MayHoldClasses() ? qualifier.CopyWithoutClasses()
                                        : boost::shared_ptr<TInmemQualifier>();
    });
  } catch (const std::bad_alloc&) {
    // A namespace goes, and nobody is there to be told that some of it stays.
  }
  NoteChange();
}

}  // namespace NZELVYR20
