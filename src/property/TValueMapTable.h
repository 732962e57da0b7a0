#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "DisplayQualifiers.h"
#include "TInmemPropertyBase.h"
#include "TInmemQualifierSet.h"

namespace NZELVYR20 {

/// What a declaration's "Values" and "ValueMap" make of numbers, kept with the declaration from the
/// first rendering on. It notes of what it was made, so that nobody has to tell it of a change.
class TValueMapTable {
 public:
  TValueMapTable() = default;
  explicit TValueMapTable(const TInmemQualifierSet& qualifiers)
      : revision_(qualifiers.GetRevision()),
        values_(qualifiers, DisplayQualifier::kValues),
        valueMap_(qualifiers, DisplayQualifier::kValueMap) {}

  /// Whether these qualifiers are still what it was made of.
  bool IsCurrent(const TInmemQualifierSet& qualifiers) const {
    return qualifiers.GetRevision() == revision_ && values_.IsUnchanged() &&
           valueMap_.IsUnchanged();
  }

  std::vector<TInmemPropertyBase::TValueMapEntry> entries;
  std::string otherText;
  bool isUsable = false;

 private:
  /// A qualifier and its value; where there is none, that alone.
  class TSource {
   public:
    TSource() = default;
    TSource(const TInmemQualifierSet& qualifiers, const TDisplayQualifier& name)
        : qualifier_(qualifiers.FindKey(name.key).get()),
          revision_(qualifier_ == nullptr ? 0 : qualifier_->GetRevision()) {}

    bool IsUnchanged() const {
      return qualifier_ == nullptr || (qualifier_->GetRevision() == revision_ &&
                                       revision_ != TInmemQualifier::kLastRevision);
    }

   private:
    const TInmemQualifier* qualifier_ = nullptr;  ///< as long as the set is unchanged
    std::uint16_t revision_ = 0;
  };

  std::uint64_t revision_ = 0;
  TSource values_;
  TSource valueMap_;
};

}  // namespace NZELVYR20
