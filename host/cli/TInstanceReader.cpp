#include "TInstanceReader.h"

#include <set>
#include <string>
#include <vector>

#include "ICIMPropertyDecl.h"
#include "ListElements.h"

namespace NZELVYR20 {

std::vector<boost::shared_ptr<ICIMProperty>> TInstanceReader::ListProperties(
    ICIMInstance& instance) {
  return ListElements<ICIMProperty>([&instance](const TCIMPropertyCallback& callback) {
    instance.EnumerateProperties(callback, {});
  });
}

std::set<std::string> TInstanceReader::ListKeyNames(ICIMClass& cimClass) {
  std::set<std::string> names;
  cimClass.EnumerateKeyNames(
      [&names](const std::string* name) {
        names.insert(*name);
        return true;
      },
      {});
  return names;
}

std::string TInstanceReader::NameOf(const ICIMProperty& property) {
  return property.GetDeclaration({})->GetName({});
}

}  // namespace NZELVYR20
