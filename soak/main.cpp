#include <CLI/CLI.hpp>
#include <chrono>
#include <iostream>
#include <string>
#include <vector>

#include "TSampleMachine.h"
#include "TSizeTrials.h"
#include "TSoakHost.h"
#include "TSoakWatch.h"

namespace {

using NZELVYR20::TSoakSample;

constexpr int kIntervals = 9;

/// Polls for that long, and tells how often.
std::size_t WarmUp(NZELVYR20::TSoakHost& host, double seconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  std::size_t rounds = 0;
  for (; std::chrono::steady_clock::now() < end; ++rounds) host.Poll();
  return rounds;
}

/// One line for each interval; false where the last needed more than the first.
bool Soak(const std::string& root, double seconds) {
  NZELVYR20::TSoakHost host(root);
  const std::size_t rounds = WarmUp(host, seconds / (kIntervals + 1));
  std::cout << "    rounds   heap blocks    heap bytes  resident KiB\n";
  std::vector<TSoakSample> samples;
  samples.reserve(kIntervals);  // so that it does not count as growth itself
  for (int interval = 0; interval < kIntervals; ++interval) {
    samples.push_back(PollAndMeasure(host, rounds));
    std::cout << samples.back() << std::endl;  // NOLINT(performance-avoid-endl): may be watched
  }
  const bool grew = IsGrowth(samples.front(), samples.back());
  std::cout << (grew ? "soak: memory grew\n" : "soak: memory stayed flat\n");
  return !grew;
}

int Run(int argumentCount, const char* const* arguments) {
  CLI::App options("Polls the repository as a host does for years, and watches its memory.");
  double seconds = 60;
  options.add_option("seconds", seconds, "How long, 60 where it is not given")
      ->check(CLI::PositiveNumber);
  std::string root;
  options.add_option("--root", root, "The machine to collect; a small sample of one by default");
  bool wantsSizes = false;
  options.add_flag("--sizes", wantsSizes, "Try great depths and sizes, and nothing else");
  try {
    options.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& error) {
    return options.exit(error);
  }
  if (wantsSizes) return NZELVYR20::TrySizes(std::cout) ? 0 : 1;
  if (!root.empty()) return Soak(root, seconds) ? 0 : 1;
  const NZELVYR20::TSampleMachine machine;
  return Soak(machine.GetRoot(), seconds) ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  try {
    return Run(argumentCount, arguments);
  } catch (const std::exception& error) {
    std::cerr << "vyr_soak: " << error.what() << '\n';
    return 1;
  }
}
