#include "TRootFolder.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <climits>
#include <sstream>

namespace NZELVYR20 {
namespace {

constexpr int kMaximumLinks = 40;  ///< as the kernel has it

TDescriptor OpenAt(const TDescriptor& folder, const std::string& name, int flags) {
  return TDescriptor(openat(folder.Get(), name.c_str(), flags | O_CLOEXEC));
}

TDescriptor OpenByKernel(const TDescriptor& root, const std::string& path, int flags) {
  open_how how = {};
  how.flags = static_cast<unsigned>(flags) | O_CLOEXEC;
  how.resolve = RESOLVE_IN_ROOT;
  return TDescriptor(
      static_cast<int>(syscall(SYS_openat2, root.Get(), path.c_str(), &how, sizeof how)));
}

/// The components that are still to be gone, the next at the end.
void PushComponents(std::vector<std::string>& components, const std::string& path) {
  std::vector<std::string> names;
  std::istringstream text(path);
  for (std::string name; std::getline(text, name, '/');) {
    if (!name.empty() && name != ".") names.push_back(name);
  }
  components.insert(components.end(), names.rbegin(), names.rend());
}

struct TStep {
  std::string name;
  TDescriptor place;
};

}  // namespace

TRootFolder::TRootFolder(const std::string& path, EFollow follow)
    : root_(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)), follow_(follow) {}

TDescriptor TRootFolder::Open(const std::string& path, int flags) const {
  if (follow_ == kByWalk) return Walk(path, flags);
  TDescriptor opened = OpenByKernel(root_, path, flags);
  // Kernels before 5.6 lack the call, sandboxes refuse it, and it gives up where files are being
  // moved at the same time.
  const bool isAnswer = opened.IsOpen() || (errno != ENOSYS && errno != EPERM && errno != EAGAIN);
  return isAnswer ? std::move(opened) : Walk(path, flags);
}

TDescriptor TRootFolder::Walk(const std::string& path, int flags) const {
  std::vector<std::string> components;
  PushComponents(components, path);
  std::vector<TStep> steps;  // from the root to where the walk is, without links
  for (int links = 0; !components.empty();) {
    const std::string name = components.back();
    components.pop_back();
    if (name == "..") {
      if (!steps.empty()) steps.pop_back();
      continue;
    }
    TDescriptor place =
        OpenAt(steps.empty() ? root_ : steps.back().place, name, O_PATH | O_NOFOLLOW);
    if (!place.IsOpen()) return place;
    const bool mayFollow = !components.empty() || (flags & O_NOFOLLOW) == 0;
    const std::string target = mayFollow ? ReadLink(place) : std::string();
    if (target.empty()) {
      steps.push_back({name, std::move(place)});
      continue;
    }
    if (++links > kMaximumLinks) {
      errno = ELOOP;
      return TDescriptor();
    }
    if (target.front() == '/') steps.clear();
    PushComponents(components, target);
  }
  if (steps.empty()) return OpenAt(root_, ".", flags);
  return OpenAt(steps.size() == 1 ? root_ : steps[steps.size() - 2].place, steps.back().name,
                flags | O_NOFOLLOW);
}

std::string ReadLink(const TDescriptor& link) {
  std::array<char, PATH_MAX> target = {};
  const ssize_t size = readlinkat(link.Get(), "", target.data(), target.size());
  return size > 0 ? std::string(target.data(), static_cast<std::size_t>(size)) : std::string();
}

}  // namespace NZELVYR20
