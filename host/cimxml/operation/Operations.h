#pragma once

#include <string>
#include <vector>

#include "TOperation.h"

namespace NZELVYR20 {

/// The operation of that name, in any letter case; null where there is none, as for all that write.
const TOperation* FindOperation(const std::string& name);

/// @{
/// The operations on one kind of element.
std::vector<TOperation> ClassOperations();
std::vector<TOperation> InstanceOperations();
std::vector<TOperation> QualifierOperations();
std::vector<TOperation> AssociationOperations();
std::vector<TOperation> QueryOperations();
std::vector<TOperation> OpenOperations();
std::vector<TOperation> PullOperations();
/// @}

}  // namespace NZELVYR20
