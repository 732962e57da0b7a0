#include "TMofInstances.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "FindOrNothing.h"
#include "FoldName.h"
#include "ICIMClass.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "TMofFault.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// No class and no path begins so.
std::string AliasKey(const TMofName& alias) { return '$' + FoldName(alias.GetText()); }

std::string DescribeInstance(const TMofInstance& instance) {
  return "instance of " + instance.className.GetText();
}

}  // namespace

TMofInstances::TMofInstances(boost::shared_ptr<ICIMNamespace> nameSpace,
                             TMofDiagnostics& diagnostics, TMofSummary& summary,
                             TMofLeftOut& leftOut, std::vector<TMofInstance> instances)
    : namespace_(std::move(nameSpace)),
      diagnostics_(diagnostics),
      summary_(summary),
      leftOut_(leftOut),
      values_(namespace_, [this](const TMofLiteral& alias) { return GetAliasPath(alias); }),
      instances_(std::move(instances)) {
  drafts_.reserve(instances_.size());
  for (TMofInstance& instance : instances_) {
    drafts_.push_back({&instance, {}, {}});
    RegisterAlias(drafts_.size() - 1);
  }
}

void TMofInstances::RegisterAlias(std::size_t index) {
  const std::optional<TMofName>& alias = drafts_[index].syntax->alias;
  if (alias && !byAlias_.emplace(FoldName(alias->GetText()), index).second) {
    diagnostics_.Error(alias->GetPlace(),
                       "the alias $" + alias->GetText() + " stands for another instance");
  }
}

void TMofInstances::Enter(const TProgress& onProgress) {
  RegisterPaths(FillAll());
  AddAll(onProgress);
}

/// Without targets, as the text has it.
std::vector<std::size_t> TMofInstances::Order(const TTargets& targets,
                                              const TGetNeeds& getNeeds) const {
  if (!targets.empty()) return OrderByNeeds(drafts_.size(), getNeeds);
  std::vector<std::size_t> order(drafts_.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  return order;
}

/// A path is known only when the key values are, which may be aliases themselves.
std::vector<std::size_t> TMofInstances::FillAll() {
  auto order = Order(byAlias_, [this](std::size_t index) { return GetAliasNeeds(index); });
  for (const std::size_t index : order) {
    TDraft& draft = drafts_[index];
    FillOrReport(draft);
    // What has been said is in the instance now: for many, it would take more memory than these.
    if (draft.referred.empty()) std::vector<TMofAssignment>().swap(draft.syntax->assignments);
  }
  return order;
}

void TMofInstances::RegisterPaths(const std::vector<std::size_t>& order) {
  const auto refers = [](const TDraft& draft) { return !draft.referred.empty(); };
  if (std::none_of(drafts_.begin(), drafts_.end(), refers)) return;
  for (const std::size_t index : order) {
    const auto& instance = drafts_[index].instance;
    if (instance) byPath_[instance->GetReference({}).GetPath()] = index;
  }
}

/// An association is valid only once its ends are there.
void TMofInstances::AddAll(const TProgress& onProgress) {
  const auto order = Order(byPath_, [this](std::size_t index) { return GetPathNeeds(index); });
  std::size_t done = 0;
  for (const std::size_t index : order) {
    if (drafts_[index].instance) AddOrReport(drafts_[index]);
    onProgress(++done, order.size());
  }
}

std::vector<std::size_t> TMofInstances::GetAliasNeeds(std::size_t index) const {
  std::vector<std::size_t> needs;
  for (const TMofAssignment& assignment : drafts_[index].syntax->assignments) {
    for (const TMofLiteral& literal : assignment.value) {
      if (literal.kind != TMofLiteral::kAlias) continue;
      const auto found = byAlias_.find(FoldName(std::string(literal.text)));
      if (found != byAlias_.end()) needs.push_back(found->second);
    }
  }
  return needs;
}

std::vector<std::size_t> TMofInstances::GetPathNeeds(std::size_t index) const {
  std::vector<std::size_t> needs;
  for (const TReferred& referred : drafts_[index].referred) {
    const auto found = byPath_.find(referred.path);
    if (found != byPath_.end()) needs.push_back(found->second);
  }
  return needs;
}

TCIMReference TMofInstances::GetAliasPath(const TMofLiteral& alias) const {
  const std::string name(alias.text);
  const auto found = byAlias_.find(FoldName(name));
  if (found == byAlias_.end()) throw TMofFault(alias.place, "no instance has the alias $" + name);
  const TDraft& draft = drafts_[found->second];
  if (!draft.instance) {
    leftOut_.Require(AliasKey({alias.text}));
    throw TMofFault(alias.place,
                    "the instance with the alias $" + name + " refers to this one in turn");
  }
  return draft.instance->GetReference({});
}

void TMofInstances::FillOrReport(TDraft& draft) {
  const TMofPlace place = draft.syntax->className.GetPlace();
  try {
    if (draft.syntax->hasQualifiers) {
      diagnostics_.Note(place, "qualifiers of instances are not kept");
    }
    Fill(draft);
  } catch (const TMofNeed& need) {
    LeaveOut(draft, need);
  } catch (const TMofFault& fault) {
    ++summary_.instances.skipped;
    NoteLeftOut(draft);
    diagnostics_.Error(fault.GetPlace(), DescribeInstance(*draft.syntax) + ": " + fault.what());
  } catch (const TVYRException& refusal) {
    Refuse(draft, place, refusal.what());
  }
}

void TMofInstances::Fill(TDraft& draft) {
  TMofKnownClass& known = GetClass(draft.syntax->className);
  const auto instance = known.AllocateInstance();
  assigned_.clear();
  for (const TMofAssignment& assignment : draft.syntax->assignments) {
    const TMember& member = known.GetMember(assignment.property);
    const auto* const declaration = member.declaration.get();
    const bool isFirst =
        std::find(assigned_.begin(), assigned_.end(), declaration) == assigned_.end();
    if (isFirst) assigned_.push_back(declaration);
    Assign(draft, *instance, assignment, member, isFirst);
  }
  draft.instance = instance;
}

TMofKnownClass& TMofInstances::GetClass(const TMofName& name) {
  if (lastClass_ != nullptr && lastClass_->first == name.text) return lastClass_->second;
  const std::string text = name.GetText();
  auto known = classes_.find(text);
  if (known == classes_.end()) {
    const auto cimClass = FindOrNothing([&] { return namespace_->GetClass(text, {}); });
    if (!cimClass) {
      leftOut_.Require(FoldName(text));
      leftOut_.Add(FoldName(text), text);
      throw TMofFault(name.GetPlace(), "there is no class " + text);
    }
    known = classes_.try_emplace(text, cimClass).first;
  }
  lastClass_ = &*known;
  return known->second;
}

void TMofInstances::Assign(TDraft& draft, ICIMInstance& instance, const TMofAssignment& assignment,
                           const TMember& member, bool isFirst) {
  const std::string& name = *member.name;
  TCIMValue value = values_.Make(assignment.value, member.type);
  const bool isReference = member.type == TCIMValue::TCIMType::kReference;
  if (isReference && value.IsNull()) {
    value = TCIMValue::NullReference(member.declaration->GetDefaultValue({}).GetReferencedClass());
  } else if (isReference) {
    draft.referred.push_back({static_cast<TCIMReference>(value).GetPath(), &assignment});
  }
  try {
    if (!isFirst && !(instance.GetProperty(name, {})->GetValue({}) == value)) {
      diagnostics_.Warning(assignment.property.GetPlace(),
                           "the property " + name + " has a value already; this one counts");
    }
    instance.SetPropertyValue(name, value, {});
  } catch (const TVYRException& refusal) {
    throw TMofFault(assignment.value.GetPlace(), "property " + name + ": " + refusal.what());
  }
}

void TMofInstances::AddOrReport(const TDraft& draft) {
  try {
    for (const TReferred& referred : draft.referred) leftOut_.Require(referred.path);
    AddOne(draft);
  } catch (const TMofNeed& need) {
    LeaveOut(draft, need);
  }
}

void TMofInstances::AddOne(const TDraft& draft) {
  const TCIMReference path = draft.instance->GetReference({});
  const bool isReplacing = namespace_->GetInstance(path, {}) != nullptr;
  if (isReplacing) {
    diagnostics_.Note(draft.syntax->className.GetPlace(),
                      "takes the place of the instance " + path.ToString());
  }
  draft.instance->AddToNamespace({});
  // A refused instance is only logged, so that the one way to know is to ask for it.
  if (namespace_->GetInstance(path, {}) == draft.instance) {
    ++(isReplacing ? summary_.instances.replaced : summary_.instances.declared);
    return;
  }
  try {
    draft.instance->Validate({});
    ExplainRefusal(draft, "it cannot be found by its path");
  } catch (const TVYRException& refusal) {
    ExplainRefusal(draft, refusal.what());
  }
}

/// The repository says which rule is broken; the text shows by what.
void TMofInstances::ExplainRefusal(const TDraft& draft, const std::string& why) {
  for (const auto& [path, assignment] : draft.referred) {
    const std::string name = assignment->property.GetText();
    const TCIMValue& value = draft.instance->GetProperty(name, {})->GetValue({});
    if (value.IsNull()) continue;
    const auto referred = static_cast<TCIMReference>(value);
    if (!namespace_->GetInstance(referred, {})) {
      return Refuse(draft, assignment->value.GetPlace(),
                    "property " + name + ": there is no instance " + referred.ToString());
    }
  }
  std::string unset;
  draft.instance->GetClass({})->EnumerateKeyNames(
      [&](const std::string* name) {
        if (draft.instance->GetProperty(*name, {})->GetValue({}).IsNull()) unset = *name;
        return unset.empty();
      },
      {});
  Refuse(draft, draft.syntax->className.GetPlace(),
         unset.empty() ? why : "the key " + unset + " has no value");
}

void TMofInstances::Refuse(const TDraft& draft, const TMofPlace& place, const std::string& why) {
  const std::string name = DescribeInstance(*draft.syntax);
  ++summary_.instances.refused;
  summary_.refusals.push_back({name, why});
  NoteLeftOut(draft);
  diagnostics_.Error(place, name + " is refused: " + why);
}

void TMofInstances::NoteLeftOut(const TDraft& draft) {
  const std::string name = "the " + DescribeInstance(*draft.syntax);
  if (draft.syntax->alias) leftOut_.Add(AliasKey(*draft.syntax->alias), name);
  if (draft.instance) leftOut_.Add(draft.instance->GetReference({}).GetPath(), name);
}

void TMofInstances::LeaveOut(const TDraft& draft, const TMofNeed& need) {
  ++summary_.instances.skipped;
  const auto& alias = draft.syntax->alias;
  leftOut_.Count(alias ? AliasKey(*alias) : std::string(), need);
  if (draft.instance) leftOut_.Add(draft.instance->GetReference({}).GetPath(), need.root);
}

}  // namespace NZELVYR20
