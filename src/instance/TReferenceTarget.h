#pragma once

#include <boost/container/small_vector.hpp>
#include <cstddef>
#include <cstdint>
#include <string>

namespace NZELVYR20 {

class TInmemClass;
class TReferenceIndex;
struct TInstanceEntry;

/// A path to which indexed references lead, whether an instance stands there or not, and the
/// entries that have them. These are arranged in the order of their own paths when a walk begins;
/// one that is taken out leaves a gap until then.
class TReferenceTarget {
 public:
  /// Few paths have more than a handful of referrers.
  using TSlots = boost::container::small_vector<TInstanceEntry*, 4>;

  TReferenceTarget(const TReferenceIndex& index, const std::string& path,
                   const std::string& className)
      : index_(&index), path_(path), className_(&className) {}
  TReferenceTarget(const TReferenceTarget&) = delete;
  TReferenceTarget& operator=(const TReferenceTarget&) = delete;
  ~TReferenceTarget() = default;

  const TReferenceIndex& GetIndex() const { return *index_; }
  const std::string& GetPath() const { return path_; }
  const std::string& GetClassName() const { return *className_; }

  bool HasReferrers() const { return count_ > 0; }

  /// Returns the slot in which the referrer then stands. A failure changes nothing.
  std::uint32_t AddReferrer(TInstanceEntry& referrer);
  void RemoveReferrer(std::uint32_t slot) noexcept;

  /// The entries; an empty pointer stands for a gap.
  const TSlots& GetSlots() const { return slots_; }

  /// The slot of the first entry behind the path of `last`; of the first of all where that is
  /// empty. Arranges the slots.
  std::size_t FindBehind(const TInstanceEntry* last) noexcept;

  /// Whether the slots are still arranged as when GetArrangement told this.
  bool IsArranged(std::uint64_t arrangement) const {
    return arrangement == arrangement_ && arranged_ == slots_.size();
  }
  std::uint64_t GetArrangement() const { return arrangement_; }

  // Where the path led last, good while neither the classes nor what was taken out of the class's
  // table have changed.
  TInmemClass* cimClass = nullptr;
  std::uint64_t classesRevision = 0;
  TInstanceEntry* entry = nullptr;
  std::uint64_t removals = 0;

  // The entry of that path that knows this target, and its next target.
  TInstanceEntry* knownBy = nullptr;
  TReferenceTarget* nextOfEntry = nullptr;

  // Among those that have lost their referrers while a walk went on.
  bool isUnused = false;
  TReferenceTarget* nextUnused = nullptr;

 private:
  void Arrange() noexcept;

  TSlots slots_;
  std::uint32_t count_ = 0;     ///< of slots that are no gaps
  std::uint32_t arranged_ = 0;  ///< so many slots from the first are in order
  std::uint64_t arrangement_ = 0;
  const TReferenceIndex* index_;
  const std::string path_;
  const std::string* className_;
};

}  // namespace NZELVYR20
