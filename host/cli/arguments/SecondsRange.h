#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace NZELVYR20 {

/// Of the time from one look at the machine to the next: a year at most.
inline CLI::Validator SecondsRange() {
  const auto check = [](const std::string& text) -> std::string {
    constexpr double kYear = 31536000;
    double seconds = -1;
    const bool isRight =
        CLI::detail::lexical_cast(text, seconds) && seconds >= 0 && seconds <= kYear;
    return isRight ? "" : "Value " + text + " not in range 0 to 31536000";
  };
  return {check, ""};
}

}  // namespace NZELVYR20
