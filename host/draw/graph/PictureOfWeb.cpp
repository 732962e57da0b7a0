#include <utility>

#include "BoxText.h"
#include "Pictures.h"

namespace NZELVYR20 {

TPicture PictureOfWeb(const TWeb& web) {
  TPicture picture;
  TLabels labels;
  for (const auto& instance : web.GetInstances()) {
    picture.boxes.push_back(BoxOf(labels.Read(*instance)));
  }
  picture.boxes.front().form = TPicture::EBox::kMain;
  for (const TStep& step : web.GetSteps()) {
    auto [from, to] = std::pair(step.from, step.to);
    if (step.way == EWay::kUp) std::swap(from, to);
    picture.arrows.push_back(
        {from, to, step.association->GetName({}),
         step.way == EWay::kLevel ? TPicture::EArrow::kLine : TPicture::EArrow::kPlain});
  }
  picture.JoinArrows();
  return picture;
}

}  // namespace NZELVYR20
