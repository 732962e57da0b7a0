#include "TMofFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace NZELVYR20 {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMebibyte = std::size_t{1024} * 1024;

bool IsFile(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored) && !fs::is_directory(path, ignored);
}

std::optional<fs::path> FindIn(const std::vector<fs::path>& folders, const fs::path& name) {
  for (const fs::path& folder : folders) {
    if (IsFile(folder / name)) return folder / name;
  }
  return std::nullopt;
}

std::system_error GetSystemError() { return {errno, std::generic_category()}; }

/// Looked at before it is opened: to open a pipe is to wait for whoever writes, and a device may
/// do anything.
void RequireFile(const fs::path& path) {
  const fs::file_status status = fs::status(path);
  if (fs::is_directory(status)) {
    throw std::system_error(std::make_error_code(std::errc::is_a_directory));
  }
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw std::invalid_argument("This is a pipe, a device or a socket, not a file");
  }
}

using TFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// At once if the file is as long as it was; only what ends short of the room has ended.
std::string ReadAtMost(std::FILE* file, std::uintmax_t length, std::size_t limit) {
  std::string bytes;
  std::size_t step = static_cast<std::size_t>(std::min<std::uintmax_t>(length, limit)) + 1;
  for (std::size_t count = step; count == step && bytes.size() <= limit;) {
    const std::size_t before = bytes.size();
    if (before > 0) step = std::size_t{64} * 1024;
    bytes.resize(before + step);
    count = std::fread(bytes.data() + before, 1, step, file);
    bytes.resize(before + count);
  }
  return bytes;
}

}  // namespace

TMofFiles::TMofFiles(const TMofOptions& options) : options_(options) {
  for (const std::string& folder : options.searchPath) Permit(folder);
}

std::optional<fs::path> TMofFiles::FindIncluded(const std::string& name,
                                                const fs::path& folder) const {
  std::string portable = name;
  std::replace(portable.begin(), portable.end(), '\\', '/');
  std::vector<fs::path> folders{folder};
  folders.insert(folders.end(), options_.searchPath.begin(), options_.searchPath.end());
  return FindIn(folders, portable);
}

/// Schemas keep their classes in a folder for each area.
void TMofFiles::ListSearchFolders() {
  searchFolders_.emplace();
  for (const std::string& folder : options_.searchPath) {
    searchFolders_->emplace_back(folder);
    std::vector<fs::path> below;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored)) {
      if (entry->is_directory(ignored)) below.push_back(entry->path());
    }
    std::sort(below.begin(), below.end());
    searchFolders_->insert(searchFolders_->end(), below.begin(), below.end());
  }
}

std::optional<fs::path> TMofFiles::FindClass(const std::string& className) {
  if (!searchFolders_) ListSearchFolders();
  return FindIn(*searchFolders_, className + ".mof");
}

std::vector<fs::path> TMofFiles::List(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".mof" && IsFile(entry.path())) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

fs::path TMofFiles::Resolve(const fs::path& path) {
  std::error_code ignored;
  return fs::weakly_canonical(path.empty() ? "." : path, ignored);
}

void TMofFiles::Permit(const fs::path& folder) {
  permitted_.insert((Resolve(folder) / "").string());
}

bool TMofFiles::IsPermitted(const fs::path& resolved) const {
  const std::string& file = resolved.native();
  return std::any_of(permitted_.begin(), permitted_.end(), [&file](const std::string& folder) {
    return file.compare(0, folder.size(), folder) == 0;
  });
}

bool TMofFiles::IsNew(const fs::path& resolved) { return seen_.insert(resolved).second; }

std::string TMofFiles::Read(const fs::path& file) const {
  RequireFile(file);
  const TFile stream(std::fopen(file.c_str(), "rb"), &std::fclose);
  if (!stream) throw GetSystemError();
  std::string bytes = ReadAtMost(stream.get(), fs::file_size(file), options_.largestFile);
  if (std::ferror(stream.get()) != 0) throw GetSystemError();
  if (bytes.size() > options_.largestFile) {
    const std::size_t mebibytes = options_.largestFile / kMebibyte;
    throw std::length_error("The file is larger than the limit of " +
                            (mebibytes > 0 ? std::to_string(mebibytes) + " MiB"
                                           : std::to_string(options_.largestFile) + " bytes"));
  }
  return bytes;
}

}  // namespace NZELVYR20
