#pragma once

#include "TCommandSet.h"

namespace NZELVYR20 {

// One function for each group of commands: their arguments, and whom they call.

void AddInstanceCommands(TCommandSet& commands);
void AddSqlCommand(TCommandSet& commands);
void AddClassCommands(TCommandSet& commands);
void AddMofCommand(TCommandSet& commands);
void AddAssociationCommands(TCommandSet& commands);
void AddDrawCommands(TCommandSet& commands);
void AddHistoryCommands(TCommandSet& commands);
void AddServeCommand(TCommandSet& commands);

}  // namespace NZELVYR20
