#pragma once

#include <CLI/CLI.hpp>

#include "TInvocation.h"

namespace NZELVYR20 {

/// The options that say what MOF to load, and how.
class TMofArguments {
 public:
  TMofArguments() = delete;

  /// Adds them to a program, to be parsed into `options`, which must outlive it.
  static void AddTo(CLI::App& app, THostOptions& options);
};

}  // namespace NZELVYR20
