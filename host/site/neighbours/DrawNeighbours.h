#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ListNeighbours.h"
#include "THtml.h"

namespace NZELVYR20 {

/// What stands in the middle of the picture.
struct TPictureSubject {
  std::string name;
  std::string className;
};

/// Draws an instance with what is around it: what is above on the left, the rest on the right, each
/// box a link. Of a group with many the first are drawn, and the rest is one box that leads to
/// `makeGroupUrl`.
void DrawNeighbours(THtml& html, const TPictureSubject& subject,
                    const std::vector<TNeighbourGroup>& groups,
                    const std::function<std::string(const TNeighbourGroup&)>& makeGroupUrl);

}  // namespace NZELVYR20
