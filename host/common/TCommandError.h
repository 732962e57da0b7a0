#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace NZELVYR20 {

/// A failure whose message is for the user: it names the thing that failed, and why.
class TCommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A command line that the program does not understand.
class TUsageError : public TCommandError {
 public:
  /// `helpCommand` is what to type for help.
  TUsageError(const std::string& message, std::string helpCommand)
      : TCommandError(message), helpCommand_(std::move(helpCommand)) {}

  const std::string& GetHelpCommand() const noexcept { return helpCommand_; }

 private:
  std::string helpCommand_;
};

}  // namespace NZELVYR20
