#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "TTerminal.h"
#include "TTreeLines.h"
#include "TWeb.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// Draws what a walk met as a tree below the instance from which it started, one line for each. An
/// instance stands as deep as it can; where there is more than one way to it, the others end with a
/// mark that says where it is. Which associations lead to what is below an instance is said where
/// they are several.
void DrawTree(const TWeb& web, const TTerminal& terminal, const TWriteText& write);

/// Says what is written of an instance, in one line.
using TDescribe = std::function<std::string(ICIMInstance& instance)>;

/// The same drawing as lines, with the instance from which the walk started at that level.
std::vector<TTreeLine> LayOutTree(const TWeb& web, const TDescribe& describe, std::size_t level,
                                  const TTerminal& terminal);

}  // namespace NZELVYR20
