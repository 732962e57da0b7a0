#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "TPicture.h"

namespace NZELVYR20 {

/// Goes through the boxes as they stand within each other: `box` takes each that holds none, `open`
/// each frame, before what is in it, and `close` the same after it; each with how deep it stands.
template <class TBox, class TOpen, class TClose>
void WalkBoxes(const TPicture& picture, const TBox& box, const TOpen& open, const TClose& close) {
  const std::vector<std::vector<std::size_t>> within = ListWithin(picture);
  std::vector<std::pair<std::size_t, std::size_t>> frames{{picture.boxes.size(), 0}};
  while (!frames.empty()) {
    const std::size_t depth = frames.size();
    auto& [frame, next] = frames.back();
    if (next == within[frame].size()) {
      if (depth > 1) close(frame, depth - 1);
      frames.pop_back();
      continue;
    }
    const std::size_t inner = within[frame][next++];
    if (within[inner].empty()) {
      box(inner, depth);
    } else {
      open(inner, depth);
      frames.emplace_back(inner, 0);
    }
  }
}

}  // namespace NZELVYR20
