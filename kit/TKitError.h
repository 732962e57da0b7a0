#pragma once

#include <stdexcept>

namespace NZELVYR20 {

/// A failure that names what failed, and why: for people.
class TKitError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace NZELVYR20
