#include <cstdlib>
#include <memory>
#include <string>

#include "BenchRows.h"
#include "PluginNamespace.h"
#include "TMofLoader.h"

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

}  // namespace

void RegisterMofRows() {
  const auto add = [](const char* name, const std::string& file) {
    benchmark::RegisterBenchmark(name, &Load, file);
  };
  add("mof/load/bundled/plug-in", VYR_SCHEMA_DIR "/vyr.mof");
  const char* const large = std::getenv("VYR_CIM_SCHEMA");
  if (large != nullptr) add("mof/load/large/plug-in", large);
}

}  // namespace NZELVYR20
