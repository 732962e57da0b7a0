#pragma once

#include <cstddef>
#include <ostream>

#include "TSoakHost.h"

namespace NZELVYR20 {

/// What an interval of rounds needed at most. Some tables grow and are pruned, so that the figures
/// after single rounds go up and down.
struct TSoakSample {
  std::size_t rounds;
  std::size_t blocks;    ///< on the heap
  std::size_t bytes;     ///< on the heap
  std::size_t resident;  ///< bytes of the process in memory; 0 where the system does not tell
};

/// Has the host poll that often.
TSoakSample PollAndMeasure(TSoakHost& host, std::size_t rounds);

/// Whether the later interval needed more than the earlier one: on the heap anything more, in
/// resident memory, where pages come and go, more than a twentieth.
bool IsGrowth(const TSoakSample& earlier, const TSoakSample& later);

std::ostream& operator<<(std::ostream& stream, const TSoakSample& sample);

}  // namespace NZELVYR20
