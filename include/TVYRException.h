#pragma once

#include <exception>

#include "TVYRStatusCode.h"
#include "VYRExport.h"

namespace NZELVYR20 {

/// The only exception type with which the contract reports a failure. It is thrown by value and
/// holds the status code alone: the message for people goes to the log, not into the exception.
class VYR_EXPORT TVYRException : public std::exception {
 public:
  /// With the code of the failure.
  explicit TVYRException(TVYRStatusCode statusCode) noexcept;
  /// @{
  /// A copy has the same code.
  TVYRException(const TVYRException&) noexcept = default;
  TVYRException& operator=(const TVYRException&) noexcept = default;
  /// @}
  ~TVYRException() override;

  /// The code with which it was made.
  TVYRStatusCode GetStatusCode() const noexcept;

  /// The text of TVYRStatusCode::TranslateStatusCode() for the code.
  const char* what() const noexcept override;

 private:
  TVYRStatusCode statusCode_;
};

}  // namespace NZELVYR20
