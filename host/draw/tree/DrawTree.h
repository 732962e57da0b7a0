#pragma once

#include "TTerminal.h"
#include "TWeb.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// Draws what a walk met as a tree below the instance from which it started, one line for each. An
/// instance stands as deep as it can; where there is more than one way to it, the others end with a
/// mark that says where it is. Which associations lead to what is below an instance is said where
/// they are several.
void DrawTree(const TWeb& web, const TTerminal& terminal, const TWriteText& write);

}  // namespace NZELVYR20
