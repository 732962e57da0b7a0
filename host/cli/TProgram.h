#pragma once

namespace NZELVYR20 {

/// The program from its arguments to its exit status: 0 for success, 1 for a failure, 2 for a
/// wrong command line.
///
/// Nothing is written before a command has succeeded: a failure leaves one line on standard error
/// and nothing on standard output, and the collectors' notes follow the output that they qualify.
class TProgram {
 public:
  TProgram() = delete;

  static int Run(int argc, char** argv);
};

}  // namespace NZELVYR20
