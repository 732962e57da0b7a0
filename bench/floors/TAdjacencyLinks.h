#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "TLinkRows.h"

namespace NZELVYR20 {

/// The floor "adjacency table": the path text of each end leads to the links that refer to it, and
/// to its own record. The queries are those of TPluginLinks.
class TAdjacencyLinks {
 public:
  explicit TAdjacencyLinks(const TLinkRows& rows);

  std::size_t CountReferences(std::size_t system) const;
  std::size_t CountAssociators(std::size_t system) const;
  /// References without the table: compares the ends of all links there are.
  std::size_t ScanReferences(std::size_t system) const;

 private:
  struct TLink {
    std::string system;
    std::string part;
  };

  std::vector<std::string> systems_;                   ///< their paths, by number
  std::unordered_map<std::string, std::string> ends_;  ///< names by path
  std::deque<TLink> links_;
  std::unordered_map<std::string, std::vector<const TLink*>> referring_;
};

}  // namespace NZELVYR20
