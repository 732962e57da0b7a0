#include "TNamespaces.h"

#include <utility>

#include "FoldName.h"

namespace NZELVYR20 {

void TNamespaces::Add(const std::string& name, boost::shared_ptr<ICIMNamespace> nameSpace) {
  byName_[FoldName(name)] = std::move(nameSpace);
}

boost::shared_ptr<ICIMNamespace> TNamespaces::Find(const std::string& name) const {
  const auto found = byName_.find(FoldName(name));
  return found == byName_.end() ? nullptr : found->second;
}

}  // namespace NZELVYR20
