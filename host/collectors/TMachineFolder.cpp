#include "TMachineFolder.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <utility>

namespace NZELVYR20 {
namespace {

/// A link leads from the root, and some file systems tell no kinds in their listings.
bool IsUnclear(const TFolderEntry& entry) {
  return entry.kind == DT_LNK || entry.kind == DT_UNKNOWN;
}

}  // namespace

TMachineFolder::TMachineFolder(const TMachineFiles& files, const std::string& path)
    : files_(files), path_(path + '/'), folder_(files.OpenFolder(path, why_)) {
  List();
}

TMachineFolder::TMachineFolder(const TMachineFiles& files, std::string path, TDescriptor folder)
    : files_(files), path_(std::move(path)), folder_(std::move(folder)) {
  List();
}

void TMachineFolder::List() {
  if (!folder_.IsOpen()) return;
  why_ = DescribeError(ListAll(folder_, entries_));
  if (!why_.empty()) entries_.clear();
}

std::vector<std::string> TMachineFolder::GetNames() const {
  std::vector<std::string> names;
  names.reserve(entries_.size());
  for (const TFolderEntry& entry : entries_) names.push_back(entry.name);
  return names;
}

const TFolderEntry* TMachineFolder::Find(std::string_view name) const {
  const auto found = std::lower_bound(
      entries_.begin(), entries_.end(), name,
      [](const TFolderEntry& entry, std::string_view wanted) { return entry.name < wanted; });
  return found != entries_.end() && found->name == name ? &*found : nullptr;
}

/// Only what is a file or a folder itself: no link leads away from here.
TDescriptor TMachineFolder::Open(const TFolderEntry& entry, int flags) const {
  return TDescriptor(
      openat(folder_.Get(), entry.name.c_str(), flags | kReadFlags | O_NOFOLLOW | O_CLOEXEC));
}

std::string TMachineFolder::ReadValue(std::string_view name) const {
  const TFolderEntry* entry = Find(name);
  if (!entry) return {};
  if (entry->kind == DT_REG) return ReadOpenValue(Open(*entry, 0));
  return IsUnclear(*entry) ? files_.ReadValue(path_ + entry->name) : std::string();
}

std::string TMachineFolder::ReadLink(std::string_view name) const {
  const TFolderEntry* entry = Find(name);
  return entry && IsUnclear(*entry) ? files_.ReadLink(path_ + entry->name) : std::string();
}

bool TMachineFolder::HasFolder(std::string_view name) const {
  const TFolderEntry* entry = Find(name);
  if (!entry) return false;
  return IsUnclear(*entry) ? files_.IsFolder(path_ + entry->name) : entry->kind == DT_DIR;
}

TMachineFolder TMachineFolder::Enter(std::string_view name) const {
  const TFolderEntry* entry = Find(name);
  if (entry && IsUnclear(*entry)) return {files_, path_ + entry->name};
  const bool isFolder = entry != nullptr && entry->kind == DT_DIR;
  return {files_, path_ + std::string(name) + '/',
          isFolder ? Open(*entry, O_DIRECTORY) : TDescriptor()};
}

}  // namespace NZELVYR20
