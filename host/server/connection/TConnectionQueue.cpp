#include "TConnectionQueue.h"

#include <utility>

namespace NZELVYR20 {

void TConnectionQueue::enqueue(std::function<void()> fn) {
  std::unique_lock<std::mutex> lock(mutex_);
  left_.wait(lock, [this] { return count_ < limits_.connections; });
  ++count_;
  lock.unlock();
  threads_.enqueue([this, serve = std::move(fn)] {
    serve();
    Leave();
  });
}

bool TConnectionQueue::IsCrowded() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return count_ > limits_.threads;
}

void TConnectionQueue::Leave() {
  const std::lock_guard<std::mutex> lock(mutex_);
  --count_;
  left_.notify_one();
}

}  // namespace NZELVYR20
