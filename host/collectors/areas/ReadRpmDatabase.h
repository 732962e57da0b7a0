#pragma once

#include <string>
#include <vector>

#include "PackageText.h"
#include "TMachineFiles.h"

namespace NZELVYR20 {

/// What the database of rpm at that path lists, which is one of SQLite's. It is read as it stands
/// there, without a lock and without what a change that runs has not put into it yet. Why it could
/// not be read, or not all of it, stands in `why`.
std::vector<TPackageFacts> ReadRpmDatabase(const TMachineFiles& files, const std::string& path,
                                           std::string& why);

}  // namespace NZELVYR20
