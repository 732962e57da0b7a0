#pragma once

#include <string>

namespace NZELVYR20 {

/// The bytes of a file as UTF-8 without a mark: UTF-8 with or without one, or UTF-16 with one.
/// Throws std::invalid_argument, naming what is wrong and the byte, where they are neither.
std::string DecodeMofText(const std::string& bytes);

}  // namespace NZELVYR20
