#include "TFileReplacement.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "TCommandError.h"

namespace NZELVYR20 {
namespace fs = std::filesystem;

TFileReplacement::TFileReplacement(const std::string& path) : given_(path), target_(path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::exists(status)) target_ = fs::canonical(path, error).string();
  if (!fs::exists(status) || fs::is_regular_file(status)) {
    temporary_ = target_ + ".new" + std::to_string(getpid());
  }
  file_.reset(temporary_.empty() ? std::fopen(path.c_str(), "w")
                                 : std::fopen(temporary_.c_str(), "wx"));
  Check(file_ != nullptr);
}

TFileReplacement::~TFileReplacement() {
  if (!temporary_.empty()) unlink(temporary_.c_str());
}

void TFileReplacement::Write(const std::string& text) {
  Check(std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size());
}

void TFileReplacement::Finish() {
  Check(std::fflush(file_.get()) == 0);
  if (!temporary_.empty()) Check(fsync(fileno(file_.get())) == 0);
  Check(std::fclose(file_.release()) == 0);
  if (temporary_.empty()) return;
  Check(std::rename(temporary_.c_str(), target_.c_str()) == 0);
  temporary_.clear();
}

void TFileReplacement::Check(bool isDone) const {
  if (!isDone) throw TCommandError(given_ + ": " + std::generic_category().message(errno));
}

}  // namespace NZELVYR20
