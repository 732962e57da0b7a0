#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// Systems and as many parts, each of them with four links.
struct TLinkRows {
  struct TLink {
    std::size_t system;
    std::size_t part;
  };

  static constexpr std::size_t kDegree = 4;

  /// With `count` links, a multiple of 16 at least.
  explicit TLinkRows(std::size_t count);

  /// So many parts, each with one link to the first system.
  static TLinkRows MakeHub(std::size_t count);

  std::vector<std::string> names;  ///< of systems, and of parts
  std::vector<TLink> links;        ///< in an order that has nothing to do with names

 private:
  TLinkRows() = default;
};

constexpr const char* kSystemKey = "Bench_System.name";
constexpr const char* kPartKey = "Bench_Part.name";

}  // namespace NZELVYR20
