#include "BenchRows.h"
#include "TAdjacencyLinks.h"
#include "TDiskRow.h"
#include "TLinkRows.h"
#include "TPluginLinks.h"
#include "TSqliteLinks.h"

namespace NZELVYR20 {
namespace {

template <class TLinks>
struct TLinked {
  explicit TLinked(std::size_t size)
      : links(TLinkRows(size)), turns(MakeShuffledOrder(size / TLinkRows::kDegree)) {}

  TLinks links;
  std::vector<std::size_t> turns;
};

/// Asks for one system after the other, shuffled.
template <class TLinks, class TQuery>
void AskInTurns(benchmark::State& state, std::size_t size, TQuery query) {
  auto& linked = GetModel<TLinked<TLinks>>(size);
  std::size_t asked = 0;
  std::size_t found = 0;
  for (auto _ : state) found += (linked.links.*query)(linked.turns[asked++ % linked.turns.size()]);
  Require(state, found, asked * TLinkRows::kDegree);
}

template <class TLinks, class TQuery>
void RegisterQuery(const char* work, std::size_t size, const char* contender, TQuery query) {
  benchmark::RegisterBenchmark(
      NameRow(work, size, contender).c_str(),
      [=](benchmark::State& state) { AskInTurns<TLinks>(state, size, query); });
}

struct THub {
  explicit THub(std::size_t size) : links(TLinkRows::MakeHub(size)) {}
  TPluginLinks links;
};

void Refresh(benchmark::State& state, std::size_t size) {
  const auto& hub = GetModel<THub>(size).links;
  std::size_t found = 0;
  for (auto _ : state) found = hub.RefreshReferences(0);
  state.counters[kItems] = static_cast<double>(size);
  Require(state, found, size);
}

template <class TLinks>
void RegisterLinks(std::size_t size, const char* contender) {
  RegisterQuery<TLinks>("links/references", size, contender, &TLinks::CountReferences);
  RegisterQuery<TLinks>("links/associators", size, contender, &TLinks::CountAssociators);
}

}  // namespace

void RegisterLinkRows(const TBenchSizes& sizes) {
  for (const std::size_t size : sizes.links) {
    RegisterLinks<TPluginLinks>(size, "plug-in");
    RegisterLinks<TAdjacencyLinks>(size, "adjacency");
    RegisterLinks<TSqliteLinks>(size, "sqlite");
  }
  for (const std::size_t size : sizes.hubs) {
    benchmark::RegisterBenchmark(NameRow("hubs/refresh", size, "plug-in").c_str(), &Refresh, size);
  }
  for (const std::size_t size : {sizes.links.front(), sizes.links.back()}) {
    RegisterQuery<TAdjacencyLinks>("links/scan", size, "scan", &TAdjacencyLinks::ScanReferences);
  }
}

}  // namespace NZELVYR20
