#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "TCIMDateTime.h"
#include "TCIMReference.h"
#include "TCIMValue.h"

// Every allocation of this program, the core library's included, passes here; a test can let them
// run out. Not inlined, or the compiler would take the pairs apart and see new meet free.
namespace {
long allowedBlocks = -1;  // -1: no limit
long liveBlocks = 0;
}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
  if (allowedBlocks == 0) throw std::bad_alloc();
  if (allowedBlocks > 0) --allowedBlocks;
  void* const block = std::malloc(size == 0 ? 1 : size);  // NOLINT(cppcoreguidelines-no-malloc)
  if (block == nullptr) throw std::bad_alloc();
  ++liveBlocks;
  return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  --liveBlocks;
  std::free(block);  // NOLINT(cppcoreguidelines-no-malloc)
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace NZELVYR20 {
namespace {

TCIMValue MakeReferences() {
  TCIMReference path({}, {});
  path.AddKeyValue("a key", std::string(50, 'k'));
  path.AddKeyValue("when", TCIMDateTime());
  return TCIMValue::Array(TCIMValue::TCIMType::kReference,
                          {path, TCIMValue::Null(TCIMValue::TCIMType::kReference), path});
}

TEST(TCIMValueAllocation, FailedAssignmentChangesNothingAndLeaksNothing) {
  const TCIMValue source = MakeReferences();
  const TCIMValue before = std::string(50, 't');
  TCIMValue target = before;
  ASSERT_EQ(source, TCIMValue(source));  // the paths make and keep their texts here
  const long liveBefore = liveBlocks;
  int failures = -1;
  while (target == before) {
    allowedBlocks = ++failures;
    try {
      target = source;
    } catch (const std::bad_alloc&) {
      allowedBlocks = -1;
      ASSERT_EQ(target, before) << "after " << failures << " allocations";
      ASSERT_EQ(liveBlocks, liveBefore) << "after " << failures << " allocations";
    }
    allowedBlocks = -1;
  }
  EXPECT_GT(failures, 5);
  EXPECT_EQ(target, source);
  target = before;
  EXPECT_EQ(liveBlocks, liveBefore);
}

}  // namespace
}  // namespace NZELVYR20
