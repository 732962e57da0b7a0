#pragma once

#include <string>

#include "SmallSchema.h"

namespace NZELVYR20 {

/// What UseNamespace tells where all is as it should be.
inline const std::string kAllIsWell =
    "Link.id=\"Port.id=\\\"a\\\"\"\nan instance\nno class\n0\nThe element was not found.\nmine\n";

/// Fills the namespace, which is empty, and tells what it finds along paths and references, what is
/// caught by its type, and what comes back from a callback.
std::string UseNamespace(const TSpace& space);

}  // namespace NZELVYR20
