#include "Operations.h"

#include <algorithm>
#include <iterator>

#include "FoldName.h"

namespace NZELVYR20 {
namespace {

std::vector<TOperation> AllOperations() {
  std::vector<TOperation> all;
  for (auto list : {
           ClassOperations,
           InstanceOperations,
           QualifierOperations,
           AssociationOperations,
           QueryOperations,
           OpenOperations,
           PullOperations,
       }) {
    std::vector<TOperation> some = list();
    all.insert(all.end(), std::make_move_iterator(some.begin()),
               std::make_move_iterator(some.end()));
  }
  return all;
}

}  // namespace

const TOperation* FindOperation(const std::string& name) {
  static const std::vector<TOperation> all = AllOperations();
  const auto found = std::find_if(all.begin(), all.end(), [&](const TOperation& operation) {
    return CompareFolded(operation.name, name) == 0;
  });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace NZELVYR20
