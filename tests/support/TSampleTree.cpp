#include "TSampleTree.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace NZELVYR20 {

TSampleTree::TSampleTree()
    : root_((std::filesystem::temp_directory_path() / "machineXXXXXX").string()) {
  if (mkdtemp(root_.data()) == nullptr) throw std::runtime_error("cannot make " + root_);
}

TSampleTree::~TSampleTree() {
  std::error_code error;
  std::filesystem::remove_all(root_, error);
}

void TSampleTree::Write(const std::string& path, const std::string& text) const {
  std::filesystem::create_directories(std::filesystem::path(root_ + path).parent_path());
  if (path.back() == '/') return;
  std::ofstream file(root_ + path, std::ios::binary);
  if (!(file << text).flush()) throw std::runtime_error("cannot write " + root_ + path);
}

void TSampleTree::WriteValues(const std::string& folder, const std::string& values) const {
  std::istringstream words(values);
  for (std::string word; words >> word;) {
    const std::size_t equals = word.find('=');
    Write(folder + word.substr(0, equals), word.substr(equals + 1) + '\n');
  }
}

}  // namespace NZELVYR20
