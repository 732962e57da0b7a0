#pragma once

#include <cstddef>

#include "THtml.h"

namespace NZELVYR20 {

/// A tree as lists within lists: whoever walks down the tree begins an item for all that he meets,
/// and then writes what stands in it. What is deeper than browsers nest stands on one level.
class TTreeList {
 public:
  explicit TTreeList(THtml& html) : html_(html) {}

  /// Ends the items that this one does not stand in. The top is of level 0.
  void Begin(std::size_t level);
  void Finish();

 private:
  void Leave();

  THtml& html_;
  std::size_t depth_ = 0;  ///< lists that are open
};

}  // namespace NZELVYR20
