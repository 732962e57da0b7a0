#include "TPluginClasses.h"

#include <utility>

#include "ICIMInstance.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICIMQualifierDecl.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"

namespace NZELVYR20 {
namespace {

using TDecl = ICIMQualifierDecl;
using TType = TCIMValue::TCIMType;

void DescribeAndMark(const boost::shared_ptr<ICIMNamespace>& space, ICIMNamedElement& element) {
  element.AllocateQualifier(space->GetQualifierDecl(kDescription, {}), kDescriptionText, {})
      ->AddToClassOrProperty({});
  Qualify(space, element, kMark);
}

}  // namespace

TPluginClasses::TPluginClasses(const TClassRows& rows) : space_(AllocatePluginNamespace()) {
  space_
      ->AllocateQualifierDecl(kDescription, TCIMValue::Null(TType::kString), TDecl::kAny,
                              TDecl::kToSubclass, {})
      ->AddToNamespace({});
  classes_.reserve(rows.classes.size());
  for (const auto& row : rows.classes) {
    const bool isTop = classes_.empty();
    auto parent = isTop ? boost::shared_ptr<ICIMClass>() : classes_[row.parent];
    auto made = space_->AllocateClass(row.name, std::move(parent), {});
    DescribeAndMark(space_, *made);
    for (const std::string& name : row.properties) {
      const auto declaration =
          made->AllocatePropertyDecl(name, TCIMValue::Null(TType::kString), {});
      DescribeAndMark(space_, *declaration);
      if (isTop && name == row.properties.front()) Qualify(space_, *declaration, "Key");
      declaration->AddToClass({});
    }
    made->AddToNamespace({});
    classes_.push_back(std::move(made));
  }
}

void TPluginClasses::AddInstances(const TClassRows& rows) {
  const std::string& key = rows.classes.front().properties.front();
  for (std::size_t number = 0; number < classes_.size(); ++number) {
    for (const std::string& value : rows.classes[number].keys) {
      const auto instance = classes_[number]->AllocateInstance({});
      instance->SetPropertyValue(key, value, {});
      instance->AddToNamespace({});
    }
  }
}

std::size_t TPluginClasses::CountSubClasses() const {
  std::size_t count = 0;
  const auto visit = [&count](const boost::shared_ptr<ICIMClass>&) { return ++count != 0; };
  classes_.front()->EnumerateSubClasses(visit, true, {});
  return count;
}

std::size_t TPluginClasses::CountInstances() const {
  std::size_t count = 0;
  const auto visit = [&count](const boost::shared_ptr<ICIMInstance>&) { return ++count != 0; };
  classes_.front()->EnumerateInstances(visit, true, {});
  return count;
}

}  // namespace NZELVYR20
