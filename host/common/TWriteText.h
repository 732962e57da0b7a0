#pragma once

#include <functional>
#include <string>

namespace NZELVYR20 {

/// Takes a piece of an output, which goes out in the order of the calls. Where nobody reads any
/// more it throws, so that whatever makes the output ends; it must not be called from within an
/// enumeration of the repository, which would discard that.
using TWriteText = std::function<void(const std::string& text)>;

}  // namespace NZELVYR20
