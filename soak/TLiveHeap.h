#pragma once

#include <cstddef>

namespace NZELVYR20 {

/// What the whole process, plug-in and host library included, has got from operator new and not
/// given back. Exact, unlike what the C library reports, which counts freed blocks that it keeps
/// for the next request. A program that uses this has its operator new replaced.
struct TLiveHeap {
  std::size_t blocks;
  std::size_t bytes;

  static TLiveHeap Measure() noexcept;
};

}  // namespace NZELVYR20
