#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "BenchRows.h"
#include "PluginNamespace.h"
#include "TDiskRow.h"
#include "TMofLoader.h"
#include "TPluginStore.h"

namespace NZELVYR20 {
namespace {

void Load(benchmark::State& state, const std::string& file) {
  TMofSummary summary;
  for (auto _ : state) {
    auto space = AllocatePluginNamespace();
    auto loader = std::make_unique<TMofLoader>(space, TMofOptions(), [](const std::string&) {});
    loader->Read(file);
    loader->Enter();
    state.PauseTiming();  // what goes with the namespace is no part of loading
    summary = loader->GetSummary();
    loader.reset();
    space.reset();
    state.ResumeTiming();
  }
  // A large schema may have classes that the repository refuses by its rules; nothing else goes
  // wrong.
  Require(state, summary.errors, summary.refusals.size());
  Require(state, summary.classes.declared > summary.refusals.size(), true);
}

std::string ToMof(const std::string& text) { return '"' + text + '"'; }
std::string ToMof(bool value) { return value ? "true" : "false"; }
template <class TNumber>
std::string ToMof(TNumber number) {
  return std::to_string(number);
}

std::string MakeDisksText(const std::string& className, const std::vector<TDiskRow>& rows) {
  std::string text;
  for (const TDiskRow& row : rows) {
    text.append("instance of ").append(className).append(" {\n");
    VisitDisk(row, [&text](std::size_t position, const auto& value) {
      text.append("  ").append(kDiskNames[position]).append(" = ");
      text.append(ToMof(value)).append(";\n");
    });
    text += "};\n";
  }
  return text;
}

void LoadInstances(benchmark::State& state, std::size_t size) {
  TPluginStore store;
  const std::string text = MakeDisksText(TPluginStore::GetClassName(), MakeDiskRows(size));
  for (auto _ : state) {
    TMofLoader loader(store.GetNamespace(), TMofOptions(), [](const std::string&) {});
    loader.ReadText("disks", text);
    loader.Enter();
  }
  state.counters[kItems] = static_cast<double>(size);
  Require(state, store.Count(), size);
}

/// What the same costs without a text.
void AddInstances(benchmark::State& state, std::size_t size) {
  const std::vector<TDiskRow> rows = MakeDiskRows(size);
  TPluginStore store;
  for (auto _ : state) store.Fill(rows);
  state.counters[kItems] = static_cast<double>(size);
  Require(state, store.Count(), size);
}

}  // namespace

void RegisterMofRows(const TBenchSizes& sizes) {
  const auto add = [](const char* name, const std::string& file) {
    benchmark::RegisterBenchmark(name, &Load, file);
  };
  add("mof/load/bundled/plug-in", VYR_SCHEMA_DIR "/vyr.mof");
  const auto addInstances = [&](const char* contender, auto* run) {
    const std::string name = NameRow("mof/instances", sizes.instances, contender);
    benchmark::RegisterBenchmark(name.c_str(), run, sizes.instances)->Iterations(1);
  };
  addInstances("plug-in", &LoadInstances);
  addInstances("interface", &AddInstances);
  const char* const large = std::getenv("VYR_CIM_SCHEMA");
  if (large != nullptr) add("mof/load/large/plug-in", large);
}

}  // namespace NZELVYR20
