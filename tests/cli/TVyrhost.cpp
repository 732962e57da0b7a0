#include "TVyrhost.h"

#include <sys/wait.h>

#include <gtest/gtest.h>

#include <boost/algorithm/string.hpp>
#include <cstdlib>
#include <sstream>

#include "Cases.h"

namespace NZELVYR20 {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

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

TOutcome TVyrhost::Execute(const TArgumentList& arguments, const std::string& redirection,
                           const std::string& program) const {
  std::string command = "exec '" + program + "' --root " + GetRoot();
  for (const std::string& argument : arguments) command += " '" + argument + '\'';
  const std::string folder = folder_.GetRoot();
  command += " >" + folder + "/output 2>" + folder + "/errors " + redirection;
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(folder + "/output"),
          ReadFile(folder + "/errors")};
}

void TVyrhost::CheckCommands(const std::string& file, TWords words) const {
  words.insert(words.end(), {{"$data", DATA_DIR}, {"$box", kBox}});
  CheckCases(file, [&](const std::string& given) {
    const std::string command = given.substr(0, given.find(" | "));
    const std::string wanted = command == given ? "" : given.substr(command.size() + 3);
    TArgumentList arguments;
    boost::split(arguments, "--quiet " + command, boost::is_any_of(" "));
    for (std::string& argument : arguments) {
      for (const auto& [word, meant] : words) boost::replace_all(argument, word, meant);
    }
    const TOutcome outcome = Execute(arguments);
    EXPECT_FALSE(Contains(outcome.output, "\033") || Contains(outcome.output, " \n")) << given;
    const bool isPart = outcome.status != 0 && !wanted.empty();
    std::string shown;
    for (const std::string& line : Lines(outcome.output + outcome.errors)) {
      if (Contains(line, wanted)) shown += (isPart ? wanted : line) + '\n';
    }
    if (outcome.status != 0) shown += "status " + std::to_string(outcome.status);
    for (const auto& [word, meant] : words) boost::replace_all(shown, meant, word);
    return boost::trim_right_copy(shown);
  });
}

}  // namespace NZELVYR20
