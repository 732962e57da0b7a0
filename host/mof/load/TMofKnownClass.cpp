#include "TMofKnownClass.h"

#include <utility>

#include "FindOrNothing.h"
#include "ICIMInstance.h"
#include "TMofFault.h"

namespace NZELVYR20 {

TMofKnownClass::TMofKnownClass(boost::shared_ptr<ICIMClass> cimClass)
    : class_(std::move(cimClass)) {}

boost::shared_ptr<ICIMInstance> TMofKnownClass::AllocateInstance() const {
  return class_->AllocateInstance({});
}

/// Instances name their properties in the same order as a rule: what came next the last time is
/// the first guess.
const TMofKnownClass::TMember& TMofKnownClass::GetMember(const TMofName& name) {
  TMember* const guess = last_ == nullptr ? nullptr : last_->next;
  TMember* const found = guess != nullptr && *guess->name == name.text ? guess : &FindMember(name);
  if (last_ != nullptr) last_->next = found;
  return *(last_ = found);
}

TMofKnownClass::TMember& TMofKnownClass::FindMember(const TMofName& name) {
  const std::string text = name.GetText();
  const auto found = members_.find(text);
  if (found != members_.end()) return found->second;
  const auto declaration = FindOrNothing([&] { return class_->GetPropertyDecl(text, {}); });
  if (!declaration) throw TMofFault(name.GetPlace(), "the class has no property " + text);
  const auto added = members_.emplace(text, TMember{declaration, declaration->GetType({})}).first;
  added->second.name = &added->first;
  return added->second;
}

}  // namespace NZELVYR20
