#include "RunVyrhost.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

struct TCloseFile {
  void operator()(FILE* file) const { std::fclose(file); }
};

/// A file without a name takes any amount of text, where a pipe would have to be emptied in time.
using TScratchFile = std::unique_ptr<FILE, TCloseFile>;

std::string ReadAll(FILE* file) {
  std::string text;
  std::array<char, 4096> buffer{};
  std::rewind(file);
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file)) {
    text.append(buffer.data(), count);
  }
  return text;
}

[[noreturn]] void BecomeProgram(std::vector<std::string> words, int output, int errors) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (auto& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  dup2(output, STDOUT_FILENO);
  dup2(errors, STDERR_FILENO);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

int WaitFor(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("waitpid failed");
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

TOutcome RunVyrhost(const TArgumentList& arguments, int outputDescriptor) {
  const TScratchFile output(std::tmpfile());
  const TScratchFile errors(std::tmpfile());
  if (!output || !errors) throw std::runtime_error("cannot make a file for the output");

  std::vector<std::string> words{VYRHOST_PATH};
  words.insert(words.end(), arguments.begin(), arguments.end());
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("fork failed");
  if (child == 0) {
    BecomeProgram(words, outputDescriptor < 0 ? fileno(output.get()) : outputDescriptor,
                  fileno(errors.get()));
  }
  TOutcome outcome;
  outcome.status = WaitFor(child);
  outcome.output = ReadAll(output.get());
  outcome.errors = ReadAll(errors.get());
  return outcome;
}

}  // namespace NZELVYR20
