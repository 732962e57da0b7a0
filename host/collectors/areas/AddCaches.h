#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "TCIMReference.h"
#include "TCollection.h"

namespace NZELVYR20 {

/// The cores of a processor, each with the numbers of its logical processors.
using TAddedCores = std::vector<std::pair<TCIMReference, std::vector<std::uint32_t>>>;

/// Adds the caches of a processor, and links them with it and with the cores that share them.
void AddCaches(TCollection& collection, const TCIMReference& processor, const TAddedCores& cores);

}  // namespace NZELVYR20
