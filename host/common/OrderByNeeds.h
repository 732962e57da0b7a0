#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace NZELVYR20 {

/// The numbers from 0 to `count` - 1 in an order in which each stands after those that it needs;
/// what does not depend on that keeps its order. A circle cannot be ordered: the need that closes
/// it is disregarded. However long a chain is, the stack is not.
std::vector<std::size_t> OrderByNeeds(
    std::size_t count, const std::function<std::vector<std::size_t>(std::size_t)>& getNeeds);

}  // namespace NZELVYR20
