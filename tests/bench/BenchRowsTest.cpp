#include "BenchRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

/// Keeps the names of what ran, and of what failed.
class TRunsReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      names.push_back(run.benchmark_name());
      if (run.error_occurred) failed.push_back(run.benchmark_name() + ": " + run.error_message);
    }
  }

  std::vector<std::string> names;
  std::vector<std::string> failed;
};

// Every benchmark compares its contender's answer with the one that the model has.
TEST(BenchRowsTest, EveryContenderAnswersRight) {
  TBenchSizes sizes;
  sizes.instances = 20;
  sizes.classes = 23;
  sizes.links = {16, 64};
  sizes.hubs = {10};
  RegisterAllRows(sizes);
  std::string program = "bench_tests";
  std::string shortly = "--benchmark_min_time=0.0001";
  char* arguments[] = {program.data(), shortly.data(), nullptr};
  int count = 2;
  benchmark::Initialize(&count, arguments);

  TRunsReporter reporter;
  const std::size_t ran = benchmark::RunSpecifiedBenchmarks(&reporter);
  EXPECT_EQ(ran, reporter.names.size());
  EXPECT_EQ(reporter.failed, std::vector<std::string>());
  for (const char* name : {"instances/enumerate/20/plug-in", "instances/add/20/sqlite/iterations:1",
                           "links/associators/64/adjacency", "hubs/refresh/10/plug-in",
                           "classes/declare/23/map", "display/value-map/20/plug-in",
                           "mof/load/bundled/plug-in", "mof/instances/20/interface/iterations:1"}) {
    EXPECT_EQ(std::count(reporter.names.begin(), reporter.names.end(), name), 1) << name;
  }
}

}  // namespace
}  // namespace NZELVYR20
