#include "TSizeTrials.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <exception>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>

#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

constexpr rlim_t kMemory = 3ULL << 30U;
constexpr rlim_t kSeconds = 120;

using TSpace = boost::shared_ptr<ICIMNamespace>;
using TClass = boost::shared_ptr<ICIMClass>;

std::string Numbered(const char* name, unsigned number) { return name + std::to_string(number); }

/// `count` classes, each below the one before where they are to be a chain.
void AddClasses(const TSpace& space, unsigned count, bool isChain, bool declares) {
  const TClass top = AddClass(space, "Top", "");
  TClass last = top;
  for (unsigned number = 0; number < count; ++number) {
    last = space->AllocateClass(Numbered("Class", number), isChain ? last : top, {});
    if (declares) last->AllocatePropertyDecl(Numbered("Own", number), 0, {})->AddToClass({});
    last->AddToNamespace({});
  }
  AddInstance(last, "a");
  unsigned found = 0;
  const auto note = [&found](const boost::shared_ptr<ICIMInstance>&) { return ++found != 0; };
  top->EnumerateInstances(note, true, {});
  if (found != 1) throw std::logic_error("the walk loses instances");
}

void AddInstances(unsigned count) {
  const auto space = AllocatePluginNamespace();
  const TClass cimClass = AddClass(space, "Thing", 0U);
  for (unsigned number = 0; number < count; ++number) AddInstance(cimClass, number);
  const auto path = TCIMReference::Parse("Thing.Id=" + std::to_string(count - 1), space);
  if (!space->GetInstance(path, {})) throw std::logic_error("an instance is lost");
}

void AddNested(unsigned depth) {
  const auto space = AllocatePluginNamespace();
  AddNestedInstances(space, AddInstance(AddClass(space, "Leaf", ""), "a"), depth);
}

void RefuseNested() {
  try {
    AddNested(30);
  } catch (const std::length_error&) {
    return;
  }
  throw std::runtime_error("nothing refused the path");
}

struct TTrial {
  const char* name;
  void (*run)();
};

const TTrial kTrials[] = {
    {"chain of 10,000 subclasses",
     [] { AddClasses(AllocatePluginNamespace(), 10000, true, false); }},
    {"the same, redefinition allowed",
     [] { AddClasses(AllocatePluginNamespace(true), 10000, true, false); }},
    {"chain of 100,000 subclasses",
     [] { AddClasses(AllocatePluginNamespace(), 100000, true, false); }},
    {"chain of 2,000, each declares a property",
     [] { AddClasses(AllocatePluginNamespace(), 2000, true, true); }},
    {"100,000 classes side by side",
     [] { AddClasses(AllocatePluginNamespace(), 100000, false, false); }},
    {"10,000 side by side, redefinition allowed",
     [] { AddClasses(AllocatePluginNamespace(true), 10000, false, false); }},
    {"1,000,000 instances", [] { AddInstances(1000000); }},
    {"reference keys nested 5 deep", [] { AddNested(5); }},
    {"reference keys nested 15 deep", [] { AddNested(15); }},
    {"reference keys nested 20 deep", [] { AddNested(20); }},
    {"reference keys nested 30 deep, refused", &RefuseNested},
};

/// The child's part: never returns, and leaves nothing of the parent's behind.
[[noreturn]] void RunLimited(const TTrial& trial) {
  const rlimit memory{kMemory, kMemory};
  const rlimit seconds{kSeconds, kSeconds};
  if (setrlimit(RLIMIT_AS, &memory) != 0 || setrlimit(RLIMIT_CPU, &seconds) != 0) _exit(2);
  try {
    trial.run();
  } catch (const std::exception& failure) {
    std::cerr << trial.name << ": " << failure.what() << '\n';
    _exit(1);
  }
  _exit(0);
}

std::string Outcome(int status) {
  if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
  return WEXITSTATUS(status) == 0 ? "works" : "fails";
}

bool Try(const TTrial& trial, std::ostream& report) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("cannot make a process");
  if (child == 0) RunLimited(trial);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  constexpr long kKibiPerMebi = 1024;
  report << std::left << std::setw(44) << trial.name << std::right << std::fixed
         << std::setprecision(2) << std::setw(8) << taken.count() << " s" << std::setw(8)
         << usage.ru_maxrss / kKibiPerMebi << " MiB  " << Outcome(status) << std::endl;
  return status == 0;
}

}  // namespace

bool TrySizes(std::ostream& report) {
  bool allWork = true;
  for (const TTrial& trial : kTrials) allWork = Try(trial, report) && allWork;
  return allWork;
}

}  // namespace NZELVYR20
