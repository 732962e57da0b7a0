#include "TVyrhost.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace NZELVYR20 {
namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TVyrhost::TVyrhost()
    : folder_((std::filesystem::temp_directory_path() / "vyrhostXXXXXX").string()) {
  if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("cannot make " + folder_);
  Write("proc/sys/kernel/hostname", "box\n");
  Write("etc/os-release", "NAME=Test\n");
  Write("proc/cpuinfo", "processor\t: 0\nmodel name\t: Test CPU\n");
  Write("sys/class/net/eth0/type", "1\n");
}

TVyrhost::~TVyrhost() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string TVyrhost::Write(const std::string& path, const std::string& content) const {
  const std::filesystem::path file = std::filesystem::path(GetRoot()) / path;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << content;
  return file.string();
}

TOutcome TVyrhost::Run(const TArgumentList& arguments, const std::string& redirection,
                       const std::string& program) const {
  std::string command = "exec '" + program + "'";
  for (const std::string& argument : arguments) command += " '" + argument + '\'';
  command += " >" + folder_ + "/output 2>" + folder_ + "/errors " + redirection;
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(folder_ + "/output"),
          ReadAll(folder_ + "/errors")};
}

}  // namespace NZELVYR20
