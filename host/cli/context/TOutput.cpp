#include "TOutput.h"

#include <cstddef>
#include <string>

#include "TStandardStreams.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kLargestPiece = std::size_t{1} << 18U;

}  // namespace

void TOutput::Write(const std::string& text) {
  pending_ += text;
  if (pending_.size() >= kLargestPiece) Flush();
}

void TOutput::Flush() {
  watch_.Check();
  if (!TStandardStreams::WriteOutput(pending_)) throw TReaderGone();
  pending_.clear();
}

}  // namespace NZELVYR20
