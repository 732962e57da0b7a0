#pragma once

namespace NZELVYR20 {

/// In which form a list is written.
enum class EFormat {
  kTable,      ///< for people
  kJson,       ///< one document
  kJsonLines,  ///< one JSON document on each line
  kCsv,        ///< RFC 4180, with a header
  kMof,        ///< declarations of instances
};

}  // namespace NZELVYR20
