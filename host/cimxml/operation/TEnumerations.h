#pragma once

#include <boost/shared_ptr.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "ICIMNamespace.h"
#include "ListElements.h"
#include "TElementForm.h"
#include "TWbemLimits.h"

namespace NZELVYR20 {

/// In what form an enumeration gives its instances; a client keeps to one.
enum class EPulled : unsigned char {
  kInstancesWithPath,
  kPaths,
  kInstances,
};

/// What a client opened and takes piece by piece. It holds its instances: one that has left the
/// namespace since is given all the same, as it was then, and one that has come is not.
struct TEnumeration {
  EPulled form{};
  TElementForm elementForm;
  boost::shared_ptr<ICIMNamespace> nameSpace;
  TInstanceList instances;
  std::size_t given = 0;            ///< how many of them the client has got
  std::chrono::seconds timeout{0};  ///< between two calls

  /// The next of them, at most so many.
  TInstanceList Take(std::size_t most);
  bool IsAtEnd() const { return given == instances.size(); }
};

/// The enumerations that clients have opened. One goes when it is closed, when nobody asked for its
/// next piece in time, or with its last piece.
class TEnumerations {
 public:
  explicit TEnumerations(TWbemLimits limits) : limits_(std::move(limits)) {}

  /// How long a client may be silent that asks for so many seconds, or for none; no end at all is
  /// more than anybody gets. Throws a TCimFailure of an invalid timeout.
  std::chrono::seconds GetTimeout(const std::optional<std::uint32_t>& asked) const;

  /// The next instances of an enumeration, at most so many, and no more than a piece has.
  TInstanceList Take(TEnumeration& enumeration, std::size_t most) const;

  /// Keeps an enumeration and gives the name by which its client finds it again. Throws a
  /// TCimFailure where there are as many as the limits allow.
  std::string Add(TEnumeration enumeration);
  /// Throws a TCimFailure of an invalid context where there is none of that name any more.
  TEnumeration& Find(const std::string& name);
  void Remove(const std::string& name);

 private:
  struct TEntry {
    TEnumeration enumeration;
    std::chrono::steady_clock::time_point end;
  };

  void RemoveExpired();

  TWbemLimits limits_;
  std::map<std::string, TEntry> byName_;
};

}  // namespace NZELVYR20
