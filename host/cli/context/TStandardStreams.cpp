#include "TStandardStreams.h"

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
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

/// By the user's environment; the program itself works in the locale of C.
bool IsUnicodeLocale() {
  const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr) return false;
  const std::string_view codes = nl_langinfo_l(CODESET, locale);
  const bool isUnicode = codes == "UTF-8";
  freelocale(locale);
  return isUnicode;
}

}  // namespace

bool TStandardStreams::WriteOutput(const std::string& text) {
  const int error = WriteAll(STDOUT_FILENO, text);
  if (error != 0 && error != EPIPE) {
    throw TCommandError("standard output: " + std::generic_category().message(error));
  }
  return error == 0;
}

TTerminal TStandardStreams::DescribeOutput() {
  TTerminal terminal;
  terminal.isTerminal = isatty(STDOUT_FILENO) == 1;
  terminal.isUnicode = IsUnicodeLocale();
  winsize size{};
  if (terminal.isTerminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    terminal.width = size.ws_col;
  }
  return terminal;
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
