#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/detail/sp_counted_base.hpp>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace NZELVYR20 {

/// An object and what its pointers share, in one block, as boost::make_shared makes it. But that
/// takes half the room, is found from the object, so that this can share itself without a weak
/// pointer to itself, and costs none of make_shared's atomic operations. When the last pointer
/// goes, the object's LetGo() decides when it is destroyed; where it is later, a weak pointer keeps
/// the block until the object is. Boost has no public way to do so.
template <class TObject>
class TOneBlock final : private boost::detail::sp_counted_base {
 public:
  using TPointer = boost::shared_ptr<TObject>;

  /// Leaves `room` bytes after the object for its use.
  template <class... TArgs>
  static TPointer Make(std::size_t room, TArgs&&... args) {
    static_assert(sizeof(TOneBlock) % alignof(TObject) == 0);
    const auto free = [](void* block) { ::operator delete(block); };
    const std::size_t size = sizeof(TOneBlock) + sizeof(TObject) + room;
    std::unique_ptr<void, decltype(free)> block(::operator new(size), free);
    void* const place = static_cast<TOneBlock*>(block.get()) + 1;
    auto* const object = new (place) TObject(std::forward<TArgs>(args)...);
    TPointer made = (new (block.release()) TOneBlock)->GetCounted();
    boost::detail::sp_enable_shared_from_this(&made, object, object);
    return made;
  }

  /// One more pointer to what Make made, which somebody holds.
  static TPointer Share(TObject& object) {
    TOneBlock* const block = static_cast<TOneBlock*>(static_cast<void*>(&object)) - 1;
    block->add_ref_copy();
    return block->GetCounted();
  }

  TOneBlock(const TOneBlock&) = delete;
  TOneBlock& operator=(const TOneBlock&) = delete;

 private:
  TOneBlock() = default;
  ~TOneBlock() override = default;

  TObject* GetObject() { return static_cast<TObject*>(static_cast<void*>(this + 1)); }

  /// A pointer that is counted already.
  TPointer GetCounted() {
    boost::detail::sp_counted_base* const count = this;
    return TPointer(boost::detail::sp_internal_constructor_tag(), GetObject(),
                    boost::detail::shared_count(count));
  }

  // NOLINTBEGIN(readability-identifier-naming): names of the library's
  void dispose() noexcept override { GetObject()->LetGo(); }
  void destroy() noexcept override {
    this->~TOneBlock();
    ::operator delete(static_cast<void*>(this));
  }
  void* get_deleter(const boost::detail::sp_typeinfo_&) noexcept override { return nullptr; }
  void* get_local_deleter(const boost::detail::sp_typeinfo_&) noexcept override { return nullptr; }
  void* get_untyped_deleter() noexcept override { return nullptr; }
  // NOLINTEND(readability-identifier-naming)
};

}  // namespace NZELVYR20
