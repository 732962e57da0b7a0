#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "IAnswerSink.h"
#include "TDescriptor.h"
#include "TServerOptions.h"

namespace NZELVYR20 {

/// An answer on its way: in memory while it is small, then in a file that has no name and goes with
/// the object.
class TSpool : public IAnswerSink {
 public:
  /// `total` counts the bytes of all spools and outlives them.
  TSpool(const TServerLimits& limits, std::atomic<std::uint64_t>& total)
      : limits_(limits), total_(total) {}
  ~TSpool() override { total_ -= size_; }
  TSpool(const TSpool&) = delete;
  TSpool& operator=(const TSpool&) = delete;

  /// A file that cannot take more is an answer too large as well.
  void Write(std::string_view text) override;
  void Restart() override;

  std::uint64_t GetSize() const { return size_; }
  /// The piece at an offset, or as much of it as one read gives; empty where it cannot be read.
  std::string_view Read(std::uint64_t offset, std::size_t length);

 private:
  void MoveToFile();
  void WriteFile(std::string_view text);

  const TServerLimits& limits_;
  std::atomic<std::uint64_t>& total_;
  std::uint64_t size_ = 0;
  std::string text_;  ///< the answer, or the piece of it that was read last
  TDescriptor file_;
};

}  // namespace NZELVYR20
