#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// How large the models are.
struct TBenchSizes {
  std::size_t instances = 100000;
  std::size_t classes = 1000;
  std::vector<std::size_t> links = {1000, 10000, 100000, 1000000};
  std::vector<std::size_t> hubs = {4000, 64000};
};

/// @{
/// Register the benchmarks, as MODEL/WORK/SIZE/CONTENDER: those that differ in the contender only
/// do the same work on the same values. One that is registered with a single iteration measures
/// nothing right unless it is the only thing that its process does.
void RegisterInstanceRows(const TBenchSizes& sizes);
void RegisterLinkRows(const TBenchSizes& sizes);
void RegisterClassRows(const TBenchSizes& sizes);
void RegisterDisplayRows();
void RegisterMofRows(const TBenchSizes& sizes);
/// @}
void RegisterAllRows(const TBenchSizes& sizes);

/// The counter that tells how many pieces of work one iteration does; one where it is missing.
constexpr const char* kItems = "items";
/// The counter of bytes that one piece of work leaves on the heap.
constexpr const char* kBytes = "bytes";

/// Bytes that the process has got from the heap and not given back.
std::size_t MeasureHeap();

/// The benchmark fails unless the contender's answer is the expected one.
template <class TAnswer>
void Require(benchmark::State& state, const TAnswer& answer, const TAnswer& expected) {
  if (!(answer == expected)) state.SkipWithError("a wrong answer");
}

/// `work` is MODEL/WORK.
inline std::string NameRow(const char* work, std::size_t size, const char* contender) {
  return work + ('/' + std::to_string(size)) + '/' + contender;
}

/// Registers what measures one contender's work on a model of that size.
inline auto* RegisterRow(const char* work, std::size_t size, const char* contender,
                         void (*run)(benchmark::State&, std::size_t)) {
  return benchmark::RegisterBenchmark(NameRow(work, size, contender).c_str(), run, size);
}

/// The one model of that kind and size; it is made when it is first asked for, outside of what is
/// measured, and serves every benchmark of the process.
template <class TModel>
TModel& GetModel(std::size_t size) {
  static std::map<std::size_t, std::unique_ptr<TModel>> models;
  auto& model = models[size];
  if (!model) model = std::make_unique<TModel>(size);
  return *model;
}

}  // namespace NZELVYR20
