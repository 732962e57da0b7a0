#pragma once

#include <string>

#include "TLabels.h"
#include "TPicture.h"

namespace NZELVYR20 {

/// At most so many characters of a line stand in a box.
std::string ShortLine(const std::string& text);

/// A box with an instance's label.
TPicture::TBox BoxOf(const TLabel& label);

}  // namespace NZELVYR20
