#pragma once

#include <ostream>

namespace NZELVYR20 {

/// Builds great models through the interfaces, each in a process of its own, and tells time and
/// memory of each; false where one ended otherwise than it should: crashed, ran out of stack or of
/// the memory that it was allowed.
bool TrySizes(std::ostream& report);

}  // namespace NZELVYR20
