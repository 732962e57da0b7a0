#pragma once

#include "TInvocation.h"

namespace NZELVYR20 {

/// What is printed without a command: one page about the machine, on which what could not be read
/// is told, too. Returns the exit status.
int PrintFirstPage(const TCommandContext& context);

}  // namespace NZELVYR20
