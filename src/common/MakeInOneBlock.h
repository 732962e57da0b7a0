#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace NZELVYR20 {

/// So much of a block is in front of the object, for what its pointers share.
constexpr std::size_t kSharedSize = 8 + 4 * sizeof(void*);

/// Hands out the front of one block, and frees the block with it.
template <class TShared>
struct TFrontAllocator {
  using value_type = TShared;

  explicit TFrontAllocator(void* front) noexcept : block(front) {}
  template <class TOther>
  TFrontAllocator(const TFrontAllocator<TOther>& other) noexcept : block(other.block) {}

  // NOLINTBEGIN(readability-identifier-naming): names of the standard's
  TShared* allocate(std::size_t) noexcept {
    static_assert(sizeof(TShared) <= kSharedSize);
    return static_cast<TShared*>(block);
  }
  void deallocate(TShared*, std::size_t) noexcept { ::operator delete(block); }
  // NOLINTEND(readability-identifier-naming)

  void* block;
};

/// An object and what its pointers share, in one block, as boost::make_shared makes it, with `room`
/// bytes after it for the object's use. But when the last pointer goes, `letGo(object)` decides
/// when the object is destroyed; where it is later, a weak pointer keeps the block until the object
/// is. And it takes four atomic operations less.
template <class TObject, class TLetGo, class... TArgs>
boost::shared_ptr<TObject> MakeInOneBlock(TLetGo letGo, std::size_t room, TArgs&&... args) {
  static_assert(kSharedSize % alignof(TObject) == 0);
  const auto free = [](void* block) { ::operator delete(block); };
  const std::size_t size = kSharedSize + sizeof(TObject) + room;
  std::unique_ptr<void, decltype(free)> block(::operator new(size), free);
  void* const place = static_cast<char*>(block.get()) + kSharedSize;
  auto* const object = new (place) TObject(std::forward<TArgs>(args)...);
  return boost::shared_ptr<TObject>(object, letGo, TFrontAllocator<TObject>(block.release()));
}

}  // namespace NZELVYR20
