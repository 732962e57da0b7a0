#include "TMachineFiles.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "OpenFiles.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMaximumSize = std::size_t{16} << 20;

/// Why what is open by its name alone cannot be read as a file; empty where it can.
std::string FindObstacle(const TDescriptor& place) {
  struct stat64 status = {};
  if (!place.IsOpen() || fstat64(place.Get(), &status) != 0) return DescribeError(errno);
  return S_ISREG(status.st_mode) ? std::string() : "Not a regular file";
}

}  // namespace

TMachineFiles::TMachineFiles(const std::string& root, TRootFolder::EFollow follow)
    : isLive_(root.find_first_not_of('/') == std::string::npos),
      root_(isLive_ ? "/" : root, follow) {}

TDescriptor TMachineFiles::Open(const std::string& path, int flags, std::string& why) const {
  TDescriptor opened = root_.Open(path, flags | kReadFlags);
  why = DescribeError(opened.IsOpen() ? 0 : errno);
  return opened;
}

/// Looks before it opens: a device, or a FIFO, does something when it is opened.
TDescriptor TMachineFiles::OpenFile(const std::string& path, std::string& why) const {
  why = FindObstacle(root_.Open(path, O_PATH));
  return why.empty() ? Open(path, 0, why) : TDescriptor();
}

std::optional<std::string> TMachineFiles::Read(const std::string& path, std::string& why) const {
  const TDescriptor file = OpenFile(path, why);
  if (!file.IsOpen()) return std::nullopt;
  std::string text;
  why = DescribeError(ReadAll(file, kMaximumSize, text));
  return why.empty() ? std::make_optional(std::move(text)) : std::nullopt;
}

std::string TMachineFiles::ReadValue(const std::string& path) const {
  std::string why;
  return ReadOpenValue(OpenFile(path, why));
}

TDescriptor TMachineFiles::OpenFolder(const std::string& path, std::string& why) const {
  return Open(path, O_DIRECTORY, why);
}

TDescriptor TMachineFiles::Find(const std::string& path) const { return root_.Open(path, O_PATH); }

bool TMachineFiles::IsFolder(const std::string& path) const {
  return root_.Open(path, O_PATH | O_DIRECTORY).IsOpen();
}

std::string TMachineFiles::ReadTable(const std::string& path) const {
  std::string why;
  return Read(path, why).value_or(std::string());
}

std::string TMachineFiles::ReadLink(const std::string& path) const {
  return NZELVYR20::ReadLink(root_.Open(path, O_PATH | O_NOFOLLOW));
}

std::string TMachineFiles::ReadLinkName(const std::string& path) const {
  const std::string target = ReadLink(path);
  return target.substr(target.rfind('/') + 1);
}

}  // namespace NZELVYR20
