#include "TSampleTree.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace NZELVYR20 {
namespace {

std::string MakeRoot() {
  std::string path = (std::filesystem::temp_directory_path() / "machineXXXXXX").string();
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("cannot make " + path);
  return path;
}

}  // namespace

TSampleTree::TSampleTree() : root_(MakeRoot()) {}

TSampleTree::~TSampleTree() {
  std::error_code error;
  std::filesystem::remove_all(root_, error);
}

TSampleTree& TSampleTree::Write(const std::string& path, const std::string& text) {
  std::filesystem::create_directories(std::filesystem::path(root_ + path).parent_path());
  std::ofstream file(root_ + path, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("cannot write " + root_ + path);
  return *this;
}

TSampleTree& TSampleTree::WriteValues(const std::string& folder, const std::string& values) {
  std::istringstream words(values);
  for (std::string word; words >> word;) {
    const std::size_t equals = word.find('=');
    Write(folder + word.substr(0, equals), word.substr(equals + 1) + '\n');
  }
  return *this;
}

TSampleTree& TSampleTree::MakeFolder(const std::string& path) {
  std::filesystem::create_directories(root_ + path);
  return *this;
}

TSampleTree& TSampleTree::Link(const std::string& path, const std::string& target) {
  std::filesystem::create_directories(std::filesystem::path(root_ + path).parent_path());
  std::filesystem::create_symlink(target, root_ + path);
  return *this;
}

}  // namespace NZELVYR20
