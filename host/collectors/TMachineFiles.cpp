#include "TMachineFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <system_error>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMaximumSize = std::size_t{16} << 20;
constexpr std::size_t kMaximumValue = std::size_t{64} << 10;

std::string DescribeError(int error) { return std::generic_category().message(error); }

/// 0 or the error number.
int ReadAll(const TDescriptor& file, std::size_t maximum, std::string& text) {
  std::array<char, 4096> buffer = {};
  for (;;) {
    const ssize_t count = read(file.Get(), buffer.data(), buffer.size());
    if (count == 0) return 0;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    text.append(buffer.data(), static_cast<std::size_t>(count));
    if (text.size() > maximum) return EFBIG;
  }
}

/// Why what is open by its name alone cannot be read as that kind; empty where it can.
std::string FindObstacle(const TDescriptor& place, mode_t kind, std::size_t maximum) {
  struct stat64 status = {};
  if (!place.IsOpen() || fstat64(place.Get(), &status) != 0) return DescribeError(errno);
  if ((status.st_mode & S_IFMT) != kind) {
    return kind == S_IFDIR ? DescribeError(ENOTDIR) : "Not a regular file";
  }
  const bool isTooLarge = kind == S_IFREG && static_cast<std::uint64_t>(status.st_size) > maximum;
  return isTooLarge ? DescribeError(EFBIG) : std::string();
}

/// Looks before it opens: a device, or a FIFO, does something when it is opened.
TDescriptor OpenAs(mode_t kind, const TRootFolder& root, const std::string& path,
                   std::size_t maximum, std::string& why) {
  why = FindObstacle(root.Open(path, O_PATH), kind, maximum);
  if (!why.empty()) return TDescriptor();
  TDescriptor opened = root.Open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!opened.IsOpen()) why = DescribeError(errno);
  return opened;
}

using TStream = std::unique_ptr<DIR, int (*)(DIR*)>;

}  // namespace

TMachineFiles::TMachineFiles(const std::string& root, TRootFolder::EFollow follow)
    : isLive_(root.find_first_not_of('/') == std::string::npos),
      root_(isLive_ ? "/" : root, follow) {}

std::optional<std::string> TMachineFiles::Read(const std::string& path, std::size_t maximum,
                                               std::string& why) const {
  const TDescriptor file = OpenAs(S_IFREG, root_, path, maximum, why);
  if (!file.IsOpen()) return std::nullopt;
  std::string text;
  if (const int error = ReadAll(file, maximum, text)) {
    why = DescribeError(error);
    return std::nullopt;
  }
  return text;
}

std::optional<std::string> TMachineFiles::Read(const std::string& path, std::string& why) const {
  return Read(path, kMaximumSize, why);
}

std::string TMachineFiles::ReadValue(const std::string& path) const {
  std::string why;
  const std::optional<std::string> text = Read(path, kMaximumValue, why);
  return std::string(Trim(text ? *text : std::string_view()));
}

std::optional<std::vector<std::string>> TMachineFiles::List(const std::string& path,
                                                            std::string& why) const {
  TDescriptor folder = OpenAs(S_IFDIR, root_, path, 0, why);
  const TStream stream(folder.IsOpen() ? fdopendir(folder.Get()) : nullptr, closedir);
  if (!stream) return std::nullopt;
  folder.Release();
  std::vector<std::string> names;
  for (errno = 0; const dirent64* entry = readdir64(stream.get()); errno = 0) {
    const std::string name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") names.push_back(name);
  }
  if (errno != 0) {
    why = DescribeError(errno);
    return std::nullopt;
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> TMachineFiles::List(const std::string& path) const {
  std::string why;
  return List(path, why).value_or(std::vector<std::string>());
}

TDescriptor TMachineFiles::Find(const std::string& path) const { return root_.Open(path, O_PATH); }

bool TMachineFiles::IsFolder(const std::string& path) const {
  return root_.Open(path, O_PATH | O_DIRECTORY).IsOpen();
}

std::string TMachineFiles::ReadLinkName(const std::string& path) const {
  const std::string target = ReadLink(root_.Open(path, O_PATH | O_NOFOLLOW));
  return target.substr(target.rfind('/') + 1);
}

}  // namespace NZELVYR20
