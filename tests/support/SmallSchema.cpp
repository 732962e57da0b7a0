#include "SmallSchema.h"

#include "ICIMQualifier.h"
#include "ICIMQualifierDecl.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

void Qualify(const boost::shared_ptr<ICIMNamespace>& space, ICIMNamedElement& element,
             const std::string& name) {
  auto declaration = space->GetQualifierDecl(name, {});
  if (!declaration) {
    declaration = space->AllocateQualifierDecl(name, true, ICIMQualifierDecl::kAny,
                                               ICIMQualifierDecl::kNoFlavor, {});
    declaration->AddToNamespace({});
  }
  element.AllocateQualifier(declaration, true, {})->AddToClassOrProperty({});
}

boost::shared_ptr<ICIMClass> MakeClass(const boost::shared_ptr<ICIMNamespace>& space,
                                       const std::string& name, const TCIMValue& key) {
  auto made = space->AllocateClass(name, {}, {});
  if (key.IsReference()) Qualify(space, *made, "Association");
  const auto declaration = made->AllocatePropertyDecl("Id", key, {});
  Qualify(space, *declaration, "Key");
  declaration->AddToClass({});
  return made;
}

boost::shared_ptr<ICIMClass> AddClass(const boost::shared_ptr<ICIMNamespace>& space,
                                      const std::string& name, const TCIMValue& key) {
  auto added = MakeClass(space, name, key);
  added->AddToNamespace({});
  return added;
}

boost::shared_ptr<ICIMInstance> AddInstance(const boost::shared_ptr<ICIMClass>& cimClass,
                                            const TCIMValue& id) {
  auto added = cimClass->AllocateInstance({});
  added->SetPropertyValue("Id", id, {});
  added->AddToNamespace({});
  return added;
}

boost::shared_ptr<ICIMInstance> AddNestedInstances(const boost::shared_ptr<ICIMNamespace>& space,
                                                   const boost::shared_ptr<ICIMInstance>& leaf,
                                                   unsigned depth) {
  auto last = leaf;
  for (unsigned level = 1; level <= depth; ++level) {
    const auto key = TCIMValue::NullReference(last->GetClass({}));
    const auto link = AddClass(space, "Link" + std::to_string(level), key);
    last = AddInstance(link, last->GetReference({}));
  }
  return last;
}

}  // namespace NZELVYR20
