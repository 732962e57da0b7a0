#include "UtcTimeText.h"

#include <array>

namespace NZELVYR20 {

std::string UtcTimeText(std::time_t moment) {
  std::tm parts{};
  gmtime_r(&moment, &parts);
  std::array<char, 32> text{};
  const std::size_t size = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return {text.data(), size};
}

}  // namespace NZELVYR20
