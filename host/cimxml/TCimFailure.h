#pragma once

#include <stdexcept>
#include <string>

namespace NZELVYR20 {

/// What an operation answers in place of a result: the codes of the protocol.
enum class ECimStatus : int {
  kFailed = 1,
  kAccessDenied = 2,
  kInvalidNamespace = 3,
  kInvalidParameter = 4,
  kInvalidClass = 5,
  kNotFound = 6,
  kNotSupported = 7,
  kNoSuchProperty = 12,
  kQueryLanguageNotSupported = 14,
  kInvalidQuery = 15,
  kMethodNotAvailable = 16,
  kMethodNotFound = 17,
  kInvalidEnumerationContext = 21,
  kInvalidOperationTimeout = 22,
  kFilteredEnumerationNotSupported = 25,
  kContinuationOnErrorNotSupported = 26,
  kServerLimitsExceeded = 27,
};

/// An operation fails, with what its client is told.
class TCimFailure : public std::runtime_error {
 public:
  TCimFailure(ECimStatus status, const std::string& message)
      : std::runtime_error(message), status_(status) {}

  ECimStatus GetStatus() const noexcept { return status_; }

 private:
  ECimStatus status_;
};

}  // namespace NZELVYR20
