#include "TTreeList.h"

#include <algorithm>

namespace NZELVYR20 {

void TTreeList::Leave() {
  html_.Close();
  html_.Close();
  --depth_;
}

void TTreeList::Begin(std::size_t level) {
  constexpr std::size_t kDeepest = 60;
  level = std::min({level, depth_, kDeepest});
  while (depth_ > level + 1) Leave();
  if (depth_ == level + 1) {
    html_.Close();
  } else {
    if (depth_++ == 0) {
      html_.Open("ul", {{"class", "tree"}});
    } else {
      html_.Open("ul");
    }
  }
  html_.Open("li");
}

void TTreeList::Finish() {
  while (depth_ > 0) Leave();
}

}  // namespace NZELVYR20
