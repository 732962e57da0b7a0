#include "TVYRException.h"

namespace NZELVYR20 {

TVYRException::TVYRException(TVYRStatusCode statusCode) noexcept : statusCode_(statusCode) {}

TVYRException::~TVYRException() = default;

TVYRStatusCode TVYRException::GetStatusCode() const noexcept { return statusCode_; }

const char* TVYRException::what() const noexcept { return statusCode_.TranslateStatusCode(); }

}  // namespace NZELVYR20
