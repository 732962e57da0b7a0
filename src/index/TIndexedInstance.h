#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "TDeclaredProperties.h"
#include "TInstanceEntry.h"

namespace NZELVYR20 {

/// What a table knows of the instances in it: where they stand, and what their properties are
/// declared by. All else it asks by TCountReferences.
class TIndexedInstance {
 public:
  using TEntries = TChain<TInstanceEntry, &TInstanceEntry::ofInstance>;

  TIndexedInstance(const TIndexedInstance&) = delete;
  TIndexedInstance& operator=(const TIndexedInstance&) = delete;

  /// A line of the block of an instance, as a processor gets it from memory at once, to be asked
  /// for ahead: first what its pointers share, the instance after that, then its values. Empty
  /// where there is no instance.
  static const char* GetLine(const TIndexedInstance* instance, std::ptrdiff_t line) {
    constexpr std::ptrdiff_t kLine = 64;
    return instance == nullptr ? nullptr
                               : reinterpret_cast<const char*>(instance) + (line - 1) * kLine;
  }

  /// The declarations that the instance was made with.
  const TDeclaredPointer& GetDeclared() const { return declared_; }

  /// The places where it was added and still stands; for tables to change.
  TEntries& GetEntries() { return entries_; }
  const TEntries& GetEntries() const { return entries_; }

 protected:
  explicit TIndexedInstance(TDeclaredPointer declared) : declared_(std::move(declared)) {}
  ~TIndexedInstance() = default;

 private:
  TEntries entries_;
  const TDeclaredPointer declared_;
};

/// Whether a walk goes from the association instances on to what else they refer to.
enum class EFollows { kNothing, kFarEnds };

/// How many of an instance's properties have references for values, be they own or defaults; empty
/// where none has, nor may come to have one.
using TCountReferences = std::optional<std::size_t> (*)(const TIndexedInstance&);

}  // namespace NZELVYR20
