#include "BenchRows.h"
#include "TClassRows.h"
#include "TDiskRow.h"
#include "THandingClasses.h"
#include "TMapClasses.h"
#include "TPluginClasses.h"
#include "TSqliteClasses.h"

namespace NZELVYR20 {
namespace {

template <class TClasses>
struct TDeclared {
  explicit TDeclared(std::size_t size) : rows(size), classes(rows), turns(MakeShuffledOrder(size)) {
    classes.AddInstances(rows);
  }

  TClassRows rows;
  TClasses classes;
  std::vector<std::size_t> turns;
};

template <class TClasses>
void Declare(benchmark::State& state, std::size_t size) {
  const TClassRows rows(size);
  std::size_t count = 0;
  for (auto _ : state) {
    auto made = std::make_unique<TClasses>(rows);
    state.PauseTiming();
    count = made->CountSubClasses();
    made.reset();
    state.ResumeTiming();
  }
  state.counters[kItems] = static_cast<double>(size);
  Require(state, count, size - 1);
}

template <class TClasses>
void LookUp(benchmark::State& state, std::size_t size) {
  auto& declared = GetModel<TDeclared<TClasses>>(size);
  std::size_t asked = 0;
  std::size_t found = 0;
  for (auto _ : state) {
    const auto& row = declared.rows.classes[declared.turns[asked++ % size]];
    found += declared.classes.Has(row.name) ? 1 : 0;
  }
  Require(state, found, asked);
}

template <class TClasses>
void WalkClasses(benchmark::State& state, std::size_t size) {
  auto& classes = GetModel<TDeclared<TClasses>>(size).classes;
  std::size_t count = 0;
  for (auto _ : state) count = classes.CountSubClasses();
  Require(state, count, size - 1);
}

template <class TClasses>
void WalkInstances(benchmark::State& state, std::size_t size) {
  auto& classes = GetModel<TDeclared<TClasses>>(size).classes;
  std::size_t count = 0;
  for (auto _ : state) count = classes.CountInstances();
  Require(state, count, size * TClassRows::kInstances);
}

template <class TClasses>
void RegisterClasses(const char* contender, std::size_t size) {
  const auto add = [&](const char* work, auto run) { RegisterRow(work, size, contender, run); };
  add("classes/declare", &Declare<TClasses>);
  add("classes/look-up", &LookUp<TClasses>);
  add("classes/deep-classes", &WalkClasses<TClasses>);
  add("classes/deep-instances", &WalkInstances<TClasses>);
}

}  // namespace

void RegisterClassRows(const TBenchSizes& sizes) {
  RegisterClasses<TPluginClasses>("plug-in", sizes.classes);
  RegisterClasses<TMapClasses>("map", sizes.classes);
  RegisterClasses<TSqliteClasses>("sqlite", sizes.classes);
  RegisterRow("classes/deep-classes", sizes.classes, "handed-out", &WalkClasses<THandingClasses>);
}

}  // namespace NZELVYR20
