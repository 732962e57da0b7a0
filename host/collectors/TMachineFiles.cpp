#include "TMachineFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMaximumSize = std::size_t{16} << 20;

std::string DescribeError(int error) { return std::generic_category().message(error); }

class TOpenFile {
 public:
  // Not to block on a FIFO that stands in the place of a file.
  explicit TOpenFile(const std::string& path)
      : descriptor_(open64(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  TOpenFile(const TOpenFile&) = delete;
  TOpenFile& operator=(const TOpenFile&) = delete;
  ~TOpenFile() {
    if (IsOpen()) close(descriptor_);
  }

  bool IsOpen() const { return descriptor_ >= 0; }

  bool IsRegular() const {
    struct stat64 status = {};
    return fstat64(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
  }

  /// 0 or the error number.
  int ReadAll(std::string& text) const {
    std::array<char, 65536> buffer = {};
    for (;;) {
      const ssize_t count = read(descriptor_, buffer.data(), buffer.size());
      if (count == 0) return 0;
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return errno;
      text.append(buffer.data(), static_cast<std::size_t>(count));
      if (text.size() > kMaximumSize) return EFBIG;
    }
  }

 private:
  int descriptor_;
};

}  // namespace

TMachineFiles::TMachineFiles(std::string root) : root_(std::move(root)) {
  while (!root_.empty() && root_.back() == '/') root_.pop_back();
}

bool TMachineFiles::IsLive() const { return root_.empty(); }

std::string TMachineFiles::Locate(const std::string& path) const { return root_ + path; }

std::optional<std::string> TMachineFiles::Read(const std::string& path, std::string& why) const {
  const TOpenFile file(Locate(path));
  if (!file.IsOpen()) {
    why = DescribeError(errno);
    return std::nullopt;
  }
  if (!file.IsRegular()) {
    why = "Not a regular file";
    return std::nullopt;
  }
  std::string text;
  if (const int error = file.ReadAll(text)) {
    why = DescribeError(error);
    return std::nullopt;
  }
  return text;
}

std::string TMachineFiles::ReadValue(const std::string& path) const {
  std::string why;
  const std::optional<std::string> text = Read(path, why);
  return std::string(Trim(text ? *text : std::string_view()));
}

std::optional<std::vector<std::string>> TMachineFiles::List(const std::string& path,
                                                            std::string& why) const {
  std::error_code error;
  std::vector<std::string> names;
  std::filesystem::directory_iterator entry(Locate(path), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
    names.push_back(entry->path().filename().string());
  if (error) {
    why = error.message();
    return std::nullopt;
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> TMachineFiles::List(const std::string& path) const {
  std::string why;
  return List(path, why).value_or(std::vector<std::string>());
}

bool TMachineFiles::IsFolder(const std::string& path) const {
  std::error_code error;
  return std::filesystem::is_directory(Locate(path), error);
}

std::string TMachineFiles::ReadLinkName(const std::string& path) const {
  std::error_code error;
  return std::filesystem::read_symlink(Locate(path), error).filename().string();
}

}  // namespace NZELVYR20
