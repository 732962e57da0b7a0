#include "TSampleMachine.h"

#include <boost/algorithm/string/replace.hpp>
#include <filesystem>
#include <fstream>

namespace NZELVYR20 {

TSampleMachine::TSampleMachine() {
  std::ifstream lines(DATA_DIR "/machine.txt");
  for (std::string line; std::getline(lines, line);) {
    const std::size_t colon = line.find(": ");
    if (line.empty() || line.front() == '#') continue;
    if (colon == std::string::npos) {
      const std::string folder = line.substr(0, line.find(' '));
      Write(folder, "");
      WriteValues(folder, line.substr(folder.size()));
      continue;
    }
    std::string text = line.substr(colon + 2) + '\n';
    boost::replace_all(text, "\\n", "\n");
    boost::replace_all(text, "\\t", "\t");
    Write(line.substr(0, colon), text);
  }
  std::filesystem::create_symlink("../../sda1", GetRoot() + "/dev/disk/by-uuid/1234");
}

}  // namespace NZELVYR20
