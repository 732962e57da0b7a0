#pragma once

#include <string>
#include <string_view>

#include "TTerminal.h"

namespace NZELVYR20 {

/// Standard output and standard error, written without buffers so that every failure shows.
class TStandardStreams {
 public:
  TStandardStreams() = delete;

  /// Writes everything. False when nobody reads any more; every other failure throws
  /// TCommandError.
  static bool WriteOutput(const std::string& text);

  /// What reads standard output: whether it is a terminal, how wide, and in what locale.
  static TTerminal DescribeOutput();

  /// Writes one line, and adds the line end. Failures have nowhere to go and are dropped.
  static void WriteErrorLine(const std::string& line);
  /// The same for a text of several lines, in which tabs stay what they are.
  static void WriteErrorLines(const std::string& lines);
  /// Writes a text as it is, also where there is no memory left.
  static void WriteErrorText(std::string_view text) noexcept;

  static bool IsErrorTerminal();
  /// Writes over the line on which a terminal's cursor stands.
  static void RewriteErrorLine(const std::string& line);
  /// Takes that line away, also where there is no memory left.
  static void ClearErrorLine() noexcept;
};

}  // namespace NZELVYR20
