#pragma once

#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// One screen about everything: the machine as a tree, in which what is many is folded, how many
/// instances there are, what could not be read, and what to ask next.
void WriteFirstPage(ICIMNamespace& nameSpace, const std::vector<std::string>& notes,
                    const TTerminal& terminal, const TWriteText& write);

}  // namespace NZELVYR20
