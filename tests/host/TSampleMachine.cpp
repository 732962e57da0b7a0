#include "TSampleMachine.h"

#include <boost/algorithm/string/replace.hpp>
#include <filesystem>
#include <fstream>

namespace NZELVYR20 {
namespace {

/// A byte stands as \xNN.
std::string RestoreBytes(std::string text) {
  for (std::size_t at = 0; (at = text.find("\\x", at)) != std::string::npos; ++at) {
    text.replace(at, 4, 1, static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16)));
  }
  return text;
}

}  // namespace

TSampleMachine::TSampleMachine() {
  std::ifstream lines(DATA_DIR "/machine.txt");
  for (std::string line; std::getline(lines, line);) {
    const std::size_t colon = line.find(": ");
    if (line.empty() || line.front() == '#') continue;
    if (const std::size_t arrow = line.find(" -> "); arrow != std::string::npos) {
      const std::filesystem::path link = GetRoot() + line.substr(0, arrow);
      std::filesystem::create_directories(link.parent_path());
      std::filesystem::create_symlink(line.substr(arrow + 4), link);
      continue;
    }
    if (colon == std::string::npos) {
      const std::string folder = line.substr(0, line.find(' '));
      Write(folder, "");
      WriteValues(folder, line.substr(folder.size()));
      continue;
    }
    std::string text = line.substr(colon + 2) + '\n';
    boost::replace_all(text, "\\n", "\n");
    boost::replace_all(text, "\\t", "\t");
    text = RestoreBytes(text);
    Write(line.substr(0, colon), text);
  }
}

}  // namespace NZELVYR20
