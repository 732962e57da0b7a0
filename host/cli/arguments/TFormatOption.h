#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "EFormat.h"

namespace NZELVYR20 {

/// The option that says in which form a list is written.
class TFormatOption {
 public:
  TFormatOption() = delete;

  static constexpr const char* kName = "--format";

  /// Adds it to a command, or to the program, to be parsed into `format`, which must outlive it.
  /// `withMof` says whether instances are listed.
  static CLI::Option* AddTo(CLI::App& command, std::optional<EFormat>& format,
                            const std::string& help, bool withMof);
};

}  // namespace NZELVYR20
