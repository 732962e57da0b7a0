#include "BenchRows.h"
#include "TCompactStore.h"
#include "TDiskRow.h"
#include "THandingStore.h"
#include "TMapStore.h"
#include "TPluginStore.h"
#include "TSqliteStore.h"

namespace NZELVYR20 {
namespace {

/// A filled store with the paths and, in the same order, the instances of its rows.
template <class TStore>
struct TFilled {
  explicit TFilled(std::size_t size) : rows(MakeDiskRows(size)) {
    store.Fill(rows);
    for (const TDiskRow& row : rows) paths.push_back(store.MakePath(row));
    for (const auto& path : paths) instances.push_back(store.Get(path));
  }

  TStore store;
  std::vector<TDiskRow> rows;
  std::vector<typename TStore::TPath> paths;
  std::vector<typename TStore::TInstance> instances;
};

template <class TStore>
void Add(benchmark::State& state, std::size_t size) {
  const auto rows = MakeDiskRows(size);
  TStore store;
  const std::size_t before = MeasureHeap();
  for (auto _ : state) store.Fill(rows);
  state.counters[kItems] = static_cast<double>(size);
  state.counters[kBytes] = static_cast<double>(MeasureHeap() - before) / static_cast<double>(size);
  Require(state, store.Count(), size);
}

/// Takes one row after the other, in an order that has nothing to do with their paths.
template <class TStore, class TWork>
void TakeTurns(benchmark::State& state, std::size_t size, TWork work) {
  auto& filled = GetModel<TFilled<TStore>>(size);
  std::size_t turn = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(work(filled, turn));
    if (++turn == size) turn = 0;
  }
}

template <class TStore>
void Get(benchmark::State& state, std::size_t size) {
  const auto get = [](auto& filled, std::size_t turn) {
    return filled.store.Get(filled.paths[turn]) != nullptr;
  };
  TakeTurns<TStore>(state, size, get);
  Require(state, get(GetModel<TFilled<TStore>>(size), size / 2), true);
}

template <class TStore>
void SetProperty(benchmark::State& state, std::size_t size) {
  const auto set = [](auto& filled, std::size_t turn) {
    filled.store.SetCapacity(filled.instances[turn], filled.rows[turn].capacity);
    return turn;
  };
  TakeTurns<TStore>(state, size, set);
  auto& filled = GetModel<TFilled<TStore>>(size);
  filled.store.SetCapacity(filled.instances[0], 1);
  Require(state, filled.store.GetCapacity(filled.instances[0]), std::uint64_t{1});
  set(filled, 0);  // the model is the others', too
}

template <class TStore>
void GetProperty(benchmark::State& state, std::size_t size) {
  const auto get = [](auto& filled, std::size_t turn) {
    return filled.store.GetCapacity(filled.instances[turn]);
  };
  TakeTurns<TStore>(state, size, get);
  auto& filled = GetModel<TFilled<TStore>>(size);
  Require(state, get(filled, size / 2), filled.rows[size / 2].capacity);
}

template <class TStore>
void Enumerate(benchmark::State& state, std::size_t size) {
  auto& store = GetModel<TFilled<TStore>>(size).store;
  std::size_t count = store.Count();
  for (auto _ : state) benchmark::DoNotOptimize(count = store.Count());
  Require(state, count, size);
}

template <class TStore>
void EnumerateAndRead(benchmark::State& state, std::size_t size) {
  auto& filled = GetModel<TFilled<TStore>>(size);
  std::uint64_t expected = 0;
  for (const TDiskRow& row : filled.rows) expected += row.capacity;
  std::uint64_t sum = filled.store.SumCapacities();
  for (auto _ : state) benchmark::DoNotOptimize(sum = filled.store.SumCapacities());
  Require(state, sum, expected);
}

template <class TStore>
void RegisterStore(const char* contender, std::size_t size) {
  const auto add = [&](const char* work, auto run) {
    return RegisterRow(work, size, contender, run);
  };
  add("instances/add", &Add<TStore>)->Iterations(1);
  add("instances/get", &Get<TStore>);
  add("instances/set-property", &SetProperty<TStore>);
  add("instances/get-property", &GetProperty<TStore>);
  add("instances/enumerate", &Enumerate<TStore>);
  add("instances/enumerate-and-read", &EnumerateAndRead<TStore>);
}

}  // namespace

void RegisterInstanceRows(const TBenchSizes& sizes) {
  RegisterStore<TPluginStore>("plug-in", sizes.instances);
  RegisterStore<TMapStore>("map", sizes.instances);
  RegisterStore<TCompactStore>("compact", sizes.instances);
  RegisterStore<TSqliteStore>("sqlite", sizes.instances);
  RegisterRow("instances/get-property", sizes.instances, "handed-out", &GetProperty<THandingStore>);
}

}  // namespace NZELVYR20
