#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace NZELVYR20 {

/// A request that is none is answered with a status of HTTP and no body; the message is a detail
/// for people.
class TRefusal : public std::runtime_error {
 public:
  TRefusal(int status, std::string cimError, const std::string& message = {})
      : std::runtime_error(message), status_(status), cimError_(std::move(cimError)) {}

  int GetStatus() const noexcept { return status_; }
  /// The header of that name; empty: none.
  const std::string& GetCimError() const noexcept { return cimError_; }

 private:
  int status_;
  std::string cimError_;
};

}  // namespace NZELVYR20
