#include "SaveDatabase.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "TCommandError.h"
#include "TSavedDatabase.h"

namespace NZELVYR20 {
namespace {

namespace fs = std::filesystem;

void RequireDone(bool isDone, const std::string& name) {
  if (!isDone) throw TCommandError(name + ": " + std::generic_category().message(errno));
}

/// An empty file beside another, gone with the object unless it has taken the other's place.
class TFileBeside {
 public:
  /// `name` is how the user calls the other.
  TFileBeside(const std::string& target, const std::string& name)
      : path_(target + ".new" + std::to_string(getpid())) {
    const int descriptor = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    RequireDone(descriptor >= 0, name);
    close(descriptor);
  }
  TFileBeside(const TFileBeside&) = delete;
  TFileBeside& operator=(const TFileBeside&) = delete;
  ~TFileBeside() { unlink(path_.c_str()); }

  const std::string& GetPath() const { return path_; }

 private:
  std::string path_;
};

/// Whether nothing is lost that is not made here.
bool IsDatabaseOrEmpty(const std::string& path) {
  constexpr std::string_view kMark = "SQLite format 3";
  std::ifstream file(path, std::ios::binary);
  std::string start(kMark.size(), ' ');
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  return file.gcount() == 0 ? file.eof() : start == kMark;
}

}  // namespace

void SaveDatabase(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& path) {
  std::error_code error;
  std::string target = fs::absolute(path, error).string();
  if (fs::exists(path, error)) {
    target = fs::canonical(path, error).string();
    if (!fs::is_regular_file(target, error) || !IsDatabaseOrEmpty(target)) {
      throw TCommandError(path + ": is there already, and is no database of SQLite");
    }
  }
  const TFileBeside beside(target, path);
  TSavedDatabase(nameSpace, beside.GetPath(), path).Fill();
  RequireDone(std::rename(beside.GetPath().c_str(), target.c_str()) == 0, path);
}

}  // namespace NZELVYR20
