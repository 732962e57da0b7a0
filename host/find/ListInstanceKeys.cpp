#include "ListInstanceKeys.h"

#include <string_view>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "ReadValue.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

constexpr std::string_view kClassKey = "creationclassname";

bool NamesClass(std::string_view key) {
  return key.size() >= kClassKey.size() &&
         CompareFolded(key.substr(key.size() - kClassKey.size()), kClassKey) == 0;
}

TInstanceKey DescribeKey(const ICIMClass& cimClass, const std::string& name) {
  const auto declaration = cimClass.GetPropertyDecl(name, {});
  bool isPropagated = false;
  declaration->GetQualifier("Propagated", isPropagated, {});
  return {name, !isPropagated && !NamesClass(name),
          declaration->GetType({}) == TCIMValue::TCIMType::kReference};
}

}  // namespace

std::vector<TInstanceKey> ListInstanceKeys(ICIMClass& cimClass) {
  std::vector<TInstanceKey> keys;
  for (const std::string& name : ListKeyNames(cimClass)) {
    keys.push_back(DescribeKey(cimClass, name));
  }
  return keys;
}

std::string KeyText(ICIMInstance& instance, const TInstanceKey& key) {
  const TCIMValue value = ReadValue(instance, key.name);
  if (value.IsNull()) return "NULL";
  return value.GetType() == TCIMValue::TCIMType::kDateTime
             ? static_cast<TCIMDateTime>(value).ToCIMString()
             : value.ToString(10);
}

std::string KeyTarget(ICIMInstance& instance, const TInstanceKey& key) {
  const TCIMValue value = ReadValue(instance, key.name);
  return value.IsReference() && !value.IsNull() ? static_cast<TCIMReference>(value).GetPath() : "";
}

}  // namespace NZELVYR20
