#include <cstdio>
#include <unordered_map>

#include "BenchRows.h"
#include "TPluginDisplay.h"

namespace NZELVYR20 {
namespace {

std::vector<std::string> MakeMeanings(std::size_t size) {
  std::vector<std::string> meanings;
  for (std::size_t number = 0; number < size; ++number) {
    meanings.push_back("Meaning of " + std::to_string(number));
  }
  return meanings;
}

struct TShown : TPluginDisplay {
  explicit TShown(std::size_t size) : TPluginDisplay(MakeMeanings(size)) {}
};

/// The same texts by the plainest code that knows what is to be shown.
struct TPlainDisplay {
  explicit TPlainDisplay(std::size_t size) {
    for (const std::string& text : MakeMeanings(size)) meanings.emplace(meanings.size(), text);
  }

  std::string ShowPlain() const { return std::to_string(plain); }

  std::string ShowMapped() const { return meanings.find(mapped)->second; }

  std::string ShowBytes() const {
    static const char* const kUnits[] = {"Bytes", "Kilobytes", "Megabytes", "Gigabytes"};
    constexpr float kDivisor = 1024;
    auto scaled = static_cast<float>(bytes);
    const char* const* unit = std::begin(kUnits);
    for (; scaled > kDivisor && *unit != kUnits[3]; ++unit) scaled /= kDivisor;
    char text[64];
    const int length =
        std::snprintf(text, sizeof text, "%.1f %s", static_cast<double>(scaled), *unit);
    return std::string(text, static_cast<std::size_t>(length));
  }

  unsigned plain = TPluginDisplay::kPlain;
  unsigned mapped = TPluginDisplay::kMapped;
  unsigned bytes = TPluginDisplay::kBytes;
  std::unordered_map<std::size_t, std::string> meanings;
};

template <class TDisplay>
void RegisterShow(const char* work, std::size_t size, const char* contender,
                  std::string (TDisplay::*show)() const, const char* expected) {
  benchmark::RegisterBenchmark(NameRow(work, size, contender).c_str(),
                               [=](benchmark::State& state) {
                                 auto& display = GetModel<TDisplay>(size);
                                 std::string text;
                                 for (auto _ : state) {
                                   benchmark::DoNotOptimize(text = (display.*show)());
                                 }
                                 Require(state, text, std::string(expected));
                               });
}

template <class TDisplay>
void RegisterDisplay(const char* contender) {
  constexpr std::size_t kMeanings = 20;
  RegisterShow<TDisplay>("display/plain", 1, contender, &TDisplay::ShowPlain, "1234567");
  RegisterShow<TDisplay>("display/value-map", kMeanings, contender, &TDisplay::ShowMapped,
                         "Meaning of 17");
  RegisterShow<TDisplay>("display/units", 1, contender, &TDisplay::ShowBytes, "4.8 Megabytes");
}

}  // namespace

void RegisterDisplayRows() {
  RegisterDisplay<TShown>("plug-in");
  RegisterDisplay<TPlainDisplay>("plain");
}

}  // namespace NZELVYR20
