#pragma once

#include <stdexcept>
#include <string>

#include "TMofSource.h"

namespace NZELVYR20 {

/// What is wrong with a declaration as it stands in the text, and where. Whoever enters the
/// declaration reports it and leaves the declaration out.
class TMofFault : public std::runtime_error {
 public:
  TMofFault(const TMofPlace& place, const std::string& text)
      : std::runtime_error(text), place_(place) {}

  const TMofPlace& GetPlace() const noexcept { return place_; }

 private:
  TMofPlace place_;
};

}  // namespace NZELVYR20
