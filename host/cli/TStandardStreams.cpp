#include "TStandardStreams.h"

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

#include "TCommandError.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr std::string_view kClearLine = "\r\033[K";

/// 0, or the error number of the write that failed.
int WriteAll(int descriptor, std::string_view text) noexcept {
  while (!text.empty()) {
    const ssize_t written = write(descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

}  // namespace

bool TStandardStreams::WriteOutput(const std::string& text) {
  const int error = WriteAll(STDOUT_FILENO, text);
  if (error != 0 && error != EPIPE) {
    throw TCommandError("standard output: " + std::generic_category().message(error));
  }
  return error == 0;
}

void TStandardStreams::WriteErrorLine(const std::string& line) {
  WriteAll(STDERR_FILENO, TText::OneLine(line) + "\n");
}

void TStandardStreams::WriteErrorLines(const std::string& lines) {
  WriteAll(STDERR_FILENO, TText::Printable(lines) + "\n");
}

void TStandardStreams::WriteErrorText(std::string_view text) noexcept {
  WriteAll(STDERR_FILENO, text);
}

bool TStandardStreams::IsErrorTerminal() { return isatty(STDERR_FILENO) == 1; }

void TStandardStreams::RewriteErrorLine(const std::string& line) {
  WriteAll(STDERR_FILENO, std::string(kClearLine) + TText::OneLine(line));
}

void TStandardStreams::ClearErrorLine() noexcept { WriteErrorText(kClearLine); }

}  // namespace NZELVYR20
