#pragma once

#include <utility>

#include "Swallow.h"

namespace NZELVYR20 {

/// What an enumeration makes of its callback: hosts rely on these differences.
struct TEnumerationRule {
  bool falseStops;
  bool exceptionsPass;
};

constexpr TEnumerationRule kStopsAndDiscards{true, false};
constexpr TEnumerationRule kVisitsAllAndDiscards{false, false};
constexpr TEnumerationRule kVisitsAllAndPasses{false, true};

/// Makes one call; tells whether the walk goes on.
template <class TCall>
bool CallBack(TEnumerationRule rule, TCall call) {
  if (rule.exceptionsPass) return call() || !rule.falseStops;
  bool goesOn = true;  // hosts' callbacks may throw: that element alone is lost
  Swallow([&] { goesOn = call() || !rule.falseStops; });
  return goesOn;
}

/// Hands every element of the table to the callback. `owner` is what holds the table; the walk
/// keeps it, since a callback may drop the last other reference to it. The element is the
/// callback's.
template <class TOwner, class TTable, class TCallback>
void Enumerate(const TOwner& owner, const TTable& table, TEnumerationRule rule,
               const TCallback& callback) {
  const TOwner held(owner);
  typename TTable::TCursor cursor(table);
  for (;;) {
    auto&& element = cursor.Next();
    if (!element) return;
    const auto call = [&] { return callback(std::forward<decltype(element)>(element)); };
    if (!CallBack(rule, call)) return;
  }
}

}  // namespace NZELVYR20
