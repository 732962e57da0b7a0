#include "TSavedTree.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace NZELVYR20 {

TSavedTree::TSavedTree() {
  std::string pattern = (std::filesystem::temp_directory_path() / "vyrhost-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a folder");
  root_ = pattern;
  Write("proc/sys/kernel/hostname", "box\n");
  Write("etc/os-release", "NAME=Test\n");
  Write("proc/cpuinfo", "processor\t: 0\nmodel name\t: Test CPU\n");
  Write("sys/class/net/eth0/type", "1\n");
  Write("sys/class/net/eth0/address", "02:00:00:00:00:01\n");
}

TSavedTree::~TSavedTree() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

std::string TSavedTree::Write(const std::string& path, const std::string& content) const {
  const std::filesystem::path file = std::filesystem::path(root_) / path;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << content;
  return file.string();
}

}  // namespace NZELVYR20
