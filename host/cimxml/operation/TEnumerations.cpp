#include "TEnumerations.h"

#include <algorithm>
#include <random>
#include <utility>

#include "TCimFailure.h"

namespace NZELVYR20 {
namespace {

/// One that no other client guesses.
std::string MakeContextName() {
  std::random_device random;
  std::string name;
  for (int i = 0; i < 4; ++i) name += (i == 0 ? "" : "-") + std::to_string(random());
  return name;
}

}  // namespace

TInstanceList TEnumeration::Take(std::size_t most) {
  const std::size_t start = given;
  given += std::min(most, instances.size() - given);
  const auto at = [&](std::size_t place) {
    return instances.begin() + static_cast<TInstanceList::difference_type>(place);
  };
  return {at(start), at(given)};
}

std::chrono::seconds TEnumerations::GetTimeout(const std::optional<std::uint32_t>& asked) const {
  if (!asked) return limits_.enumerationTimeout;
  if (*asked == 0 || *asked > limits_.longestTimeout.count()) {
    throw TCimFailure(ECimStatus::kInvalidOperationTimeout,
                      "OperationTimeout is from 1 to " +
                          std::to_string(limits_.longestTimeout.count()) + " seconds");
  }
  return std::chrono::seconds(*asked);
}

TInstanceList TEnumerations::Take(TEnumeration& enumeration, std::size_t most) const {
  return enumeration.Take(std::min(most, limits_.instancesInPiece));
}

std::string TEnumerations::Add(TEnumeration enumeration) {
  RemoveExpired();
  if (byName_.size() >= limits_.openEnumerations) {
    throw TCimFailure(ECimStatus::kServerLimitsExceeded, "too many enumerations are open");
  }
  const auto end = limits_.now() + enumeration.timeout;
  return byName_.emplace(MakeContextName(), TEntry{std::move(enumeration), end}).first->first;
}

TEnumeration& TEnumerations::Find(const std::string& name) {
  RemoveExpired();
  const auto found = byName_.find(name);
  if (found == byName_.end()) {
    throw TCimFailure(ECimStatus::kInvalidEnumerationContext, "no such enumeration is open");
  }
  TEntry& entry = found->second;
  entry.end = limits_.now() + entry.enumeration.timeout;
  return entry.enumeration;
}

void TEnumerations::Remove(const std::string& name) {
  Find(name);
  byName_.erase(name);
}

void TEnumerations::RemoveExpired() {
  const auto now = limits_.now();
  for (auto entry = byName_.begin(); entry != byName_.end();) {
    entry = entry->second.end <= now ? byName_.erase(entry) : std::next(entry);
  }
}

}  // namespace NZELVYR20
