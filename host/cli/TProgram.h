#pragma once

namespace NZELVYR20 {

/// The program from its arguments to its exit status: 0 for success, 1 for a failure, 2 for a
/// wrong command line, 3 where a comparison found differences.
///
/// Nothing is written before a command has succeeded: a failure leaves one line on standard error
/// and nothing on standard output, and the collectors' notes follow the output that they qualify,
/// unless a command has told them.
/// Only what is found in MOF of the user's own is said as it comes. What is wrong there is left
/// out; the command runs with the rest, and the status is 1.
class TProgram {
 public:
  TProgram() = delete;

  /// Ends the process; std::exit is one.
  using TLeave = void (*)(int status);

  /// `leave` is called, if there is one, with a repository still standing: what the system takes
  /// back at once need not be taken apart first.
  static int Run(int argc, char** argv, TLeave leave = nullptr);
};

}  // namespace NZELVYR20
