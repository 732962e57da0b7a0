#pragma once

#include <map>
#include <mutex>
#include <string>

namespace NZELVYR20 {

/// Who may ask: the users of a file with a line "name:hash" for each, as "openssl passwd -6" or
/// "mkpasswd" make hashes; empty lines and those with a "#" in front do not count.
class TPasswords {
 public:
  /// Throws TCommandError, also for hashes that are no match for what machines can try.
  explicit TPasswords(const std::string& file);

  /// Whether the header Authorization names a user with his password. It takes as long for those
  /// that do not exist. Any thread may ask; one at a time is answered, which slows guessing down.
  bool Admits(const std::string& authorization) const;

 private:
  bool IsRight(const std::string& user, const std::string& password) const;

  std::map<std::string, std::string> hashes_;
  mutable std::mutex mutex_;
  mutable std::string admitted_;  ///< the header that was right last
};

}  // namespace NZELVYR20
