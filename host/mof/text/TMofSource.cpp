#include "TMofSource.h"

#include <algorithm>
#include <utility>

namespace NZELVYR20 {
namespace {

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

}  // namespace

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

TMofPosition TMofSource::Locate(std::size_t offset) const {
  const std::size_t byte = std::min(offset, text_.size());
  const std::vector<std::size_t>& lineStarts = GetLineStarts();
  const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), byte);
  const auto start = text_.begin() + static_cast<std::ptrdiff_t>(*std::prev(next));
  const auto characters =
      std::count_if(start, text_.begin() + static_cast<std::ptrdiff_t>(byte), BeginsCharacter);
  return {static_cast<std::size_t>(next - lineStarts.begin()),
          static_cast<std::size_t>(characters) + 1};
}

std::string TMofSource::GetLine(std::size_t offset) const {
  const std::size_t line = Locate(offset).line - 1;
  const std::size_t start = GetLineStarts()[line];
  return text_.substr(start, text_.find_first_of("\r\n", start) - start);
}

}  // namespace NZELVYR20
