#include "BenchRows.h"

#include <malloc.h>

namespace NZELVYR20 {

void RegisterAllRows(const TBenchSizes& sizes) {
  RegisterInstanceRows(sizes);
  RegisterLinkRows(sizes);
  RegisterClassRows(sizes);
  RegisterDisplayRows();
  RegisterMofRows(sizes);
}

std::size_t MeasureHeap() {
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

}  // namespace NZELVYR20
