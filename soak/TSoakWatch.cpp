#include "TSoakWatch.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iomanip>

#include "TLiveHeap.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kResidentShare = 20;

std::size_t MeasureResident() {
  std::size_t size = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace

TSoakSample PollAndMeasure(TSoakHost& host, std::size_t rounds) {
  TSoakSample most{rounds, 0, 0, 0};
  for (std::size_t round = 0; round < rounds; ++round) {
    host.Poll();
    const TLiveHeap heap = TLiveHeap::Measure();
    most.blocks = std::max(most.blocks, heap.blocks);
    most.bytes = std::max(most.bytes, heap.bytes);
  }
  most.resident = MeasureResident();
  return most;
}

bool IsGrowth(const TSoakSample& earlier, const TSoakSample& later) {
  return later.blocks > earlier.blocks || later.bytes > earlier.bytes ||
         later.resident > earlier.resident + earlier.resident / kResidentShare;
}

std::ostream& operator<<(std::ostream& stream, const TSoakSample& sample) {
  constexpr std::size_t kKibi = 1024;
  return stream << std::setw(10) << sample.rounds << std::setw(14) << sample.blocks << std::setw(14)
                << sample.bytes << std::setw(14) << sample.resident / kKibi;
}

}  // namespace NZELVYR20
