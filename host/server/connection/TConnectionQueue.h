#pragma once

#include <httplib.h>

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>

#include "TServerOptions.h"

namespace NZELVYR20 {

/// Threads for connections, and the connections that wait for one. Who accepts them waits as well
/// while there are too many, so that the rest stay with the system.
class TConnectionQueue : public httplib::TaskQueue {
 public:
  explicit TConnectionQueue(const TServerLimits& limits)
      : limits_(limits), threads_(limits.threads) {}

  void enqueue(std::function<void()> fn) override;
  void shutdown() override { threads_.shutdown(); }

  /// Whether a connection waits for one that does not end by itself.
  bool IsCrowded();

 private:
  void Leave();

  const TServerLimits& limits_;
  httplib::ThreadPool threads_;
  std::mutex mutex_;
  std::condition_variable left_;
  std::size_t count_ = 0;
};

}  // namespace NZELVYR20
