#include <gtest/gtest.h>

#include "ICIMClass.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "THostNamespace.h"
#include "TSchemaRows.h"

namespace NZELVYR20 {
namespace {

/// Every property of every class has a description; the maps of values fit each other; an
/// association narrows its ends and never widens them.
void CheckClass(const boost::shared_ptr<ICIMClass>& cimClass) {
  SCOPED_TRACE(cimClass->GetName({}));
  EXPECT_TRUE(cimClass->GetQualifier("Description", {}));
  cimClass->EnumeratePropertyDecls(
      [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
        SCOPED_TRACE(declaration->GetName({}));
        bool found = false;
        EXPECT_TRUE(declaration->GetQualifier("Description", found, {}));
        const bool hasTexts = declaration->GetQualifier("Values", found, {}) != nullptr;
        EXPECT_EQ(hasTexts, declaration->GetQualifier("ValueMap", found, {}) != nullptr);
        const boost::shared_ptr<ICIMClass> parent = cimClass->GetSuperClass({});
        if (declaration->GetType({}) != TCIMValue::TCIMType::kReference || parent->IsRootClass({}))
          return true;
        const TCIMValue inherited =
            parent->GetPropertyDecl(declaration->GetName({}), {})->GetDefaultValue({});
        EXPECT_TRUE(declaration->GetDefaultValue({}).GetReferencedClass()->IsSubclassOf(
            inherited.GetReferencedClass(), {}));
        return true;
      },
      {});
}

TEST(Schema, EveryClassIsDescribed) {
  const THostNamespace host("");
  std::size_t count = 0;
  host.Get()->GetClass("", {})->EnumerateSubClasses(
      [&count](const boost::shared_ptr<ICIMClass>& cimClass) {
        CheckClass(cimClass);
        ++count;
        return true;
      },
      true, {});
  EXPECT_EQ(GetSystemClassRows().size() + GetDeviceClassRows().size() + GetPciClassRows().size() +
                GetStorageClassRows().size() + GetAssociationClassRows().size(),
            count);
}

}  // namespace
}  // namespace NZELVYR20
