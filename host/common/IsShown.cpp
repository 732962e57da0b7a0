#include "IsShown.h"

#include <algorithm>
#include <boost/locale/utf.hpp>
#include <iterator>

namespace NZELVYR20 {
namespace {

struct TRange {
  std::uint32_t first;
  std::uint32_t last;
};

constexpr TRange kObeyed[] = {{0, 0x1F},        {0x7F, 0x9F},     {0x61C, 0x61C},
                              {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

}  // namespace

bool IsShown(std::uint32_t code) noexcept {
  return boost::locale::utf::is_valid_codepoint(code) &&
         std::none_of(std::begin(kObeyed), std::end(kObeyed), [code](const TRange& range) {
           return range.first <= code && code <= range.last;
         });
}

}  // namespace NZELVYR20
