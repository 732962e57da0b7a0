#include "CheckPrivate.h"

#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include "TCommandError.h"

namespace NZELVYR20 {

void CheckPrivate(const std::string& file) {
  constexpr mode_t kTooMuch = S_IRWXO | S_IWGRP;
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) {
    throw TCommandError(file + ": " + std::generic_category().message(errno));
  }
  if ((status.st_mode & kTooMuch) != 0) {
    throw TCommandError(file + ": others may read or change it; chmod 600 keeps them out");
  }
}

}  // namespace NZELVYR20
