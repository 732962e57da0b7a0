#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace NZELVYR20 {

/// The numbers that a number needs.
using TGetNeeds = std::function<std::vector<std::size_t>(std::size_t number)>;

/// The numbers from 0 to `count` - 1 in groups, each after those that it needs. Numbers that need
/// each other, directly or not, are one group, in their order; every other is one by itself.
/// However long a chain is, the stack is not.
std::vector<std::vector<std::size_t>> GroupByNeeds(std::size_t count, const TGetNeeds& getNeeds);

/// The same without the groups: those of a circle keep their order, since none can be first.
std::vector<std::size_t> OrderByNeeds(std::size_t count, const TGetNeeds& getNeeds);

}  // namespace NZELVYR20
