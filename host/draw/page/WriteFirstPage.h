#pragma once

#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// What the page has to know besides the instances.
struct TFirstPageFacts {
  std::vector<std::string> notes;    ///< on what could not be read
  std::vector<std::string> command;  ///< by what other commands find the same instances, in words
};

/// One screen about everything: the machine as a tree, in which what is many is folded, how many
/// instances there are, what could not be read, and what to ask next.
void WriteFirstPage(ICIMNamespace& nameSpace, const TFirstPageFacts& facts,
                    const TTerminal& terminal, const TWriteText& write);

}  // namespace NZELVYR20
