#include "TInstanceReader.h"

#include <set>
#include <string>
#include <vector>

#include "ICIMPropertyDecl.h"
#include "ListElements.h"

namespace NZELVYR20 {

std::set<std::string> TInstanceReader::ListKeyNames(ICIMClass& cimClass) {
  const std::vector<std::string> names = NZELVYR20::ListKeyNames(cimClass);
  return {names.begin(), names.end()};
}

std::string TInstanceReader::NameOf(const ICIMProperty& property) {
  return property.GetDeclaration({})->GetName({});
}

}  // namespace NZELVYR20
