#include "TMofSource.h"

#include <algorithm>
#include <utility>

#include "StartsCharacter.h"

namespace NZELVYR20 {

TMofSource::TMofSource(std::string name, std::string text)
    : name_(std::move(name)), text_(std::move(text)) {}

const std::vector<std::size_t>& TMofSource::GetLineStarts() const {
  if (!lineStarts_.empty()) return lineStarts_;
  lineStarts_.push_back(0);
  for (std::size_t end = text_.find_first_of("\r\n"); end != std::string::npos;
       end = text_.find_first_of("\r\n", end + 1)) {
    if (text_.compare(end, 2, "\r\n") == 0) ++end;
    lineStarts_.push_back(end + 1);
  }
  return lineStarts_;
}

TMofPosition TMofSource::Locate(const TMofPlace& place) const {
  const std::vector<std::size_t>& lineStarts = GetLineStarts();
  const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(),
                                     static_cast<std::size_t>(place.byte - text_.data()));
  const auto characters =
      std::count_if(text_.data() + *std::prev(next), place.byte, StartsCharacter);
  return {static_cast<std::size_t>(next - lineStarts.begin()),
          static_cast<std::size_t>(characters) + 1};
}

std::string TMofSource::GetLine(const TMofPlace& place) const {
  const std::size_t line = Locate(place).line - 1;
  const std::size_t start = GetLineStarts()[line];
  return text_.substr(start, text_.find_first_of("\r\n", start) - start);
}

std::string_view TMofSource::Keep(const std::string& meaning) const {
  return meanings_.emplace_front(meaning);
}

}  // namespace NZELVYR20
