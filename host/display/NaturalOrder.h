#pragma once

#include <string_view>

namespace NZELVYR20 {

/// Less than 0, 0 or more, as people count: letters without regard to case, and stretches of digits
/// by their number, so that core2 stands before core10. Only equal texts give 0.
int CompareNatural(std::string_view left, std::string_view right);

}  // namespace NZELVYR20
