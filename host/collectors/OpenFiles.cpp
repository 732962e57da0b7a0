#include "OpenFiles.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr ssize_t kReadSize = 4096;

/// Adds what one read gives; how much that is, or -1.
ssize_t ReadSome(const TDescriptor& file, std::string& text) {
  char buffer[kReadSize];
  ssize_t count = -1;
  do {
    count = read(file.Get(), buffer, sizeof buffer);
  } while (count < 0 && errno == EINTR);
  if (count > 0) text.append(buffer, static_cast<std::size_t>(count));
  return count;
}

void AddEntries(const char* next, const char* end, std::vector<TFolderEntry>& entries) {
  while (next < end) {
    const auto* entry = reinterpret_cast<const dirent64*>(next);
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") entries.push_back({std::string(name), entry->d_type});
    next += entry->d_reclen;
  }
}

}  // namespace

std::string DescribeError(int error) {
  return error == 0 ? std::string() : std::generic_category().message(error);
}

int ReadAll(const TDescriptor& file, std::size_t maximum, std::string& text) {
  for (;;) {
    const ssize_t count = ReadSome(file, text);
    if (count <= 0) return count == 0 ? 0 : errno;
    if (text.size() > maximum) return EFBIG;
  }
}

std::string ReadOpenValue(const TDescriptor& file) {
  constexpr std::size_t kMaximum = std::size_t{64} << 10;
  std::string text;
  if (!file.IsOpen()) return text;
  // These are given out whole: a read that leaves room was the last.
  ssize_t count = kReadSize;
  while (count == kReadSize && text.size() <= kMaximum) count = ReadSome(file, text);
  return std::string(count >= 0 && text.size() <= kMaximum ? Trim(text) : std::string_view());
}

int ListAll(const TDescriptor& folder, std::vector<TFolderEntry>& entries) {
  alignas(dirent64) char buffer[8192];
  for (;;) {
    const ssize_t count = getdents64(folder.Get(), buffer, sizeof buffer);
    if (count < 0) return errno;
    if (count == 0) break;
    AddEntries(buffer, buffer + count, entries);
  }
  std::sort(
      entries.begin(), entries.end(),
      [](const TFolderEntry& left, const TFolderEntry& right) { return left.name < right.name; });
  return 0;
}

}  // namespace NZELVYR20
