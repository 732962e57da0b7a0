#include "TVyrhost.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace NZELVYR20 {
namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TVyrhost::TVyrhost() {
  Write("proc/sys/kernel/hostname", "box\n");
  Write("etc/os-release", "NAME=Test\n");
  Write("proc/cpuinfo", "processor\t: 0\nmodel name\t: Test CPU\n");
  Write("sys/class/net/eth0/type", "1\n");
}

std::string TVyrhost::Write(const std::string& path, const std::string& content) const {
  folder_.Write("/root/" + path, content);
  return GetRoot() + '/' + path;
}

TOutcome TVyrhost::Run(const TArgumentList& arguments, const std::string& redirection,
                       const std::string& program) const {
  std::string command = "exec '" + program + "'";
  for (const std::string& argument : arguments) command += " '" + argument + '\'';
  const std::string folder = folder_.GetRoot();
  command += " >" + folder + "/output 2>" + folder + "/errors " + redirection;
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(folder + "/output"),
          ReadAll(folder + "/errors")};
}

}  // namespace NZELVYR20
