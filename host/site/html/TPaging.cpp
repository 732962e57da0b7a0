#include "TPaging.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

namespace NZELVYR20 {
namespace {

std::size_t ReadNumber(const std::string& text) {
  std::size_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() ? number : 1;
}

}  // namespace

TPaging::TPaging(std::size_t count, const std::string& wanted)
    : count_(count), page_(std::clamp<std::size_t>(ReadNumber(wanted), 1, CountPages())) {}

std::size_t TPaging::GetEnd() const { return std::min(GetFirst() + kRows, count_); }

std::string TPaging::ToString() const {
  return std::to_string(GetFirst() + 1) + " to " + std::to_string(GetEnd()) + " of " +
         std::to_string(count_);
}

void TPaging::AddLinks(THtml& html,
                       const std::function<std::string(std::size_t page)>& makeUrl) const {
  if (IsWhole()) return;
  const std::size_t last = CountPages();
  std::set<std::size_t> shown{1, last, page_};
  for (const std::size_t step : {1, 2, 10, 100}) {
    if (page_ > step) shown.insert(page_ - step);
    if (page_ + step < last) shown.insert(page_ + step);
  }
  html.Open("nav", {{"class", "pages"}, {"aria-label", "Pages"}});
  for (const std::size_t page : shown) {
    const std::string number = std::to_string(page);
    if (page == page_) {
      html.Add("strong", number, {{"aria-current", "page"}});
    } else {
      html.AddLink(makeUrl(page), number, {{"aria-label", "Page " + number}});
    }
    html.Text(" ");
  }
  html.Close();
}

}  // namespace NZELVYR20
