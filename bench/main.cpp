#include <sqlite3.h>

#include <exception>
#include <iostream>

#include "BenchRows.h"

int main(int argumentCount, char** arguments) try {
  NZELVYR20::RegisterAllRows({});
  benchmark::AddCustomContext("compiler", VYR_BENCH_COMPILER);
  benchmark::AddCustomContext("sqlite", sqlite3_libversion());
  benchmark::Initialize(&argumentCount, arguments);
  if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
} catch (const std::exception& error) {
  std::cerr << "vyr_bench: " << error.what() << '\n';
  return 1;
}
