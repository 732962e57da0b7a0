#include "TOSSpecific.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>

namespace NZELVYR20 {

TCIMDateTime TOSSpecific::GetLocalTime() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  std::tm local{};
  // Zones may be up to a week ahead, CIM knows three digits of minutes.
  constexpr long kLongestOffset = 999L * 60;
  if (localtime_r(&now.tv_sec, &local) == nullptr || std::labs(local.tm_gmtoff) > kLongestOffset) {
    gmtime_r(&now.tv_sec, &local);
  }

  // Zones that count leap seconds know a second 60, CIM does not.
  constexpr int kLastSecond = 59;
  TCIMDateTime stamp;
  stamp.SetTimeStamp(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                     static_cast<unsigned>(local.tm_mday), static_cast<unsigned>(local.tm_hour),
                     static_cast<unsigned>(local.tm_min),
                     static_cast<unsigned>(std::min(local.tm_sec, kLastSecond)),
                     static_cast<unsigned>(now.tv_nsec / 1000),
                     static_cast<int>(local.tm_gmtoff / 60));
  return stamp;
}

}  // namespace NZELVYR20
