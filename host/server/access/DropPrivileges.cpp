#include "DropPrivileges.h"

#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

void Check(int result, const std::string& what) {
  if (result != 0) throw TCommandError(what + ": " + std::generic_category().message(errno));
}

}  // namespace

void DropPrivileges(const std::string& user) {
  const passwd* entry = getpwnam(user.c_str());  // NOLINT(concurrency-mt-unsafe): before threads
  if (entry == nullptr) throw TCommandError("--user " + user + ": there is no such user");
  const uid_t uid = entry->pw_uid;
  const gid_t gid = entry->pw_gid;
  if (uid == 0) throw TCommandError("--user " + user + ": that is root");
  Check(initgroups(user.c_str(), gid), "initgroups");
  Check(setgid(gid), "setgid");
  Check(setuid(uid), "setuid");
  Check(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), "prctl");
  if (setuid(0) == 0) throw TCommandError("root's privileges cannot be given up");
}

}  // namespace NZELVYR20
