#pragma once

#include <string>

namespace NZELVYR20 {

class TCIMDateTime {
 public:
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  std::string ToUIString() const;
};

}  // namespace NZELVYR20
