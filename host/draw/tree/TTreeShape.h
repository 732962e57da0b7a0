#pragma once

#include <cstddef>
#include <vector>

namespace NZELVYR20 {

/// What a drawing shows of one node below another.
enum class EBranch {
  kHere,    ///< the node with all that is below it
  kAbove,   ///< that it has been drawn further up
  kBelow,   ///< that it will be drawn further down
  kCycle,   ///< that from the lower one the way leads back here
  kDeeper,  ///< nothing: the node stands deeper below the same upper one
};

/// How nodes of which some are below others stand as trees, each node once: as deep as the ways
/// down lead to it, so that none hides between others what is between them. Time and memory are
/// linear, and the stack does not grow.
class TTreeShape {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  /// The numbers of the nodes below each node, in order and each once. Where there are cycles, the
  /// earlier nodes stand above the later.
  using TBelow = std::vector<std::vector<std::size_t>>;

  explicit TTreeShape(const TBelow& below);

  /// Of the node at that place below another.
  EBranch GetBranch(std::size_t node, std::size_t place) const;
  /// Below which a node is drawn in full; kNone for a top.
  std::size_t GetParent(std::size_t node) const { return parents_[node]; }
  /// All nodes, each after its parent.
  std::vector<std::size_t> ListDownwards() const { return {finished_.rbegin(), finished_.rend()}; }

 private:
  std::vector<std::size_t> ListTopsFirst() const;
  void WalkDown(std::size_t top);
  void ChooseParents();
  void Number(std::size_t top);

  const TBelow& below_;
  std::vector<std::vector<bool>> isCycle_;
  std::vector<std::size_t> finished_;  ///< the nodes, each after all below it but for cycles
  std::vector<char> states_;
  std::vector<std::size_t> parents_;
  std::vector<std::size_t> starts_;  ///< a node's number in the order of drawing
  std::vector<std::size_t> ends_;    ///< the number after those of all below it
  std::size_t next_ = 0;
};

}  // namespace NZELVYR20
