#include "TPicture.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace NZELVYR20 {

void TPicture::JoinArrows() {
  const auto key = [](const TArrow& arrow) {
    return std::tie(arrow.from, arrow.to, arrow.form, arrow.text);
  };
  std::sort(arrows.begin(), arrows.end(),
            [&key](const auto& left, const auto& right) { return key(left) < key(right); });
  std::vector<TArrow> joined;
  const TArrow* earlier = nullptr;
  for (const TArrow& arrow : arrows) {
    const bool isMore = earlier != nullptr && earlier->from == arrow.from &&
                        earlier->to == arrow.to && earlier->form == arrow.form;
    if (!isMore) {
      joined.push_back(arrow);
    } else if (earlier->text != arrow.text) {
      joined.back().text += ", " + arrow.text;
    }
    earlier = &arrow;
  }
  arrows = joined;
}

std::vector<std::vector<std::size_t>> ListWithin(const TPicture& picture) {
  std::vector<std::vector<std::size_t>> within(picture.boxes.size() + 1);
  for (std::size_t box = 0; box < picture.boxes.size(); ++box) {
    const std::size_t outer = picture.boxes[box].within;
    (outer == TPicture::kNowhere ? within.back() : within[outer]).push_back(box);
  }
  return within;
}

}  // namespace NZELVYR20
