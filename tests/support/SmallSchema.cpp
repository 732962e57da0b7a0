#include "SmallSchema.h"

#include <utility>

#include "ICIMQualifier.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

TQualifier NewQualifier(const TSpace& space, ICIMNamedElement& element, const std::string& name,
                        const TCIMValue& value, EFlavor flavor) {
  const auto declaration =
      space->AllocateQualifierDecl(name, value, ICIMQualifierDecl::kAny, flavor, {});
  return element.AllocateQualifier(declaration, value, {});
}

void Qualify(const TSpace& space, ICIMNamedElement& element, const std::string& name) {
  auto declaration = space->GetQualifierDecl(name, {});
  if (!declaration) {
    declaration = space->AllocateQualifierDecl(name, true, ICIMQualifierDecl::kAny,
                                               ICIMQualifierDecl::kNoFlavor, {});
    declaration->AddToNamespace({});
  }
  element.AllocateQualifier(std::move(declaration), true, {})->AddToClassOrProperty({});
}

TPropertyDecl Declare(const TSpace& space, const TClass& cimClass, const std::string& name,
                      const TCIMValue& value, std::initializer_list<const char*> flags) {
  auto declaration = cimClass->AllocatePropertyDecl(name, value, {});
  for (const char* flag : flags) Qualify(space, *declaration, flag);
  declaration->AddToClass({});
  return declaration;
}

TClass MakeClass(const TSpace& space, const std::string& name, const TCIMValue& key,
                 const TClass& superClass) {
  auto made = space->AllocateClass(name, superClass, {});
  if (key.IsReference()) Qualify(space, *made, "Association");
  Declare(space, made, "Id", key, {"Key"});
  return made;
}

TClass AddClass(const TSpace& space, const std::string& name, const TCIMValue& key,
                const TClass& superClass) {
  auto added = MakeClass(space, name, key, superClass);
  added->AddToNamespace({});
  return added;
}

TInstance AddInstance(const TClass& cimClass, const TCIMValue& id) {
  auto added = cimClass->AllocateInstance({});
  added->SetPropertyValue("Id", id, {});
  added->AddToNamespace({});
  return added;
}

TInstance AddNestedInstances(const TSpace& space, const TInstance& leaf, unsigned depth) {
  auto last = leaf;
  for (unsigned level = 1; level <= depth; ++level) {
    const auto key = TCIMValue::NullReference(last->GetClass({}));
    const auto link = AddClass(space, "Link" + std::to_string(level), key);
    last = AddInstance(link, last->GetReference({}));
  }
  return last;
}

}  // namespace NZELVYR20
