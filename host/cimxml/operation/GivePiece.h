#pragma once

#include <cstddef>
#include <string>

#include "TEnumerations.h"
#include "TOperation.h"

namespace NZELVYR20 {

/// The answer with the first instances of an enumeration, at most so many; it is kept where there
/// are more.
TResult GiveFirstPiece(TEnumerations& enumerations, TEnumeration enumeration, std::size_t most);

/// The answer with its next ones.
TResult GiveNextPiece(TEnumerations& enumerations, const std::string& name, std::size_t most);

}  // namespace NZELVYR20
