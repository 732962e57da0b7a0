#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "ListElements.h"
#include "THtml.h"

namespace NZELVYR20 {

/// Which part of a long list a page shows.
class TPaging {
 public:
  /// `wanted` is the number of the page as the address has it; what is no number, or beyond the
  /// last page, is the nearest that there is.
  TPaging(std::size_t count, const std::string& wanted);

  std::size_t GetFirst() const { return (page_ - 1) * kRows; }
  std::size_t GetEnd() const;
  bool IsWhole() const { return count_ <= kRows; }
  /// "101 to 200 of 3000".
  std::string ToString() const;

  /// Links to the other pages; nothing where there are none.
  void AddLinks(THtml& html, const std::function<std::string(std::size_t page)>& makeUrl) const;

 private:
  static constexpr std::size_t kRows = 100;

  std::size_t CountPages() const { return count_ == 0 ? 1 : (count_ + kRows - 1) / kRows; }

  std::size_t count_;
  std::size_t page_;
};

}  // namespace NZELVYR20
