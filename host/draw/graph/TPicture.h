#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// Boxes, some within others, and arrows between them, whichever language they are written in.
struct TPicture {
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

  enum class EBox {
    kPlain,
    kMain,     ///< what the picture is about
    kOutside,  ///< what is only there because an arrow leads to it
  };
  enum class EArrow {
    kPlain,
    kLine,      ///< without a head
    kSubclass,  ///< from a class to one below it
    kAside,     ///< between classes; the boxes need not stand one after the other
  };

  /// Texts are one line each; some text there is. A box within which others stand is a frame around
  /// these.
  struct TBox {
    std::string kind;
    std::vector<std::string> lines;
    std::size_t within = kNowhere;
    EBox form = EBox::kPlain;
    bool isList = false;  ///< the lines are of one rank
  };
  struct TArrow {
    std::size_t from;
    std::size_t to;
    std::string text;
    EArrow form = EArrow::kPlain;
  };

  std::vector<TBox> boxes;
  std::vector<TArrow> arrows;

  /// Puts several arrows between the same boxes together into one.
  void JoinArrows();
};

/// The boxes within each, and at the end those within none.
std::vector<std::vector<std::size_t>> ListWithin(const TPicture& picture);

}  // namespace NZELVYR20
