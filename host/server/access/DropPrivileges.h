#pragma once

#include <string>

namespace NZELVYR20 {

/// Makes a process of root one of this user, for good, with the user's groups. Throws TCommandError
/// where there is no such user, or where root would remain.
void DropPrivileges(const std::string& user);

}  // namespace NZELVYR20
