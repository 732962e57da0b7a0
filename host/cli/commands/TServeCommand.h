#pragma once

#include <optional>
#include <string>

#include "TInvocation.h"
#include "TServerOptions.h"

namespace NZELVYR20 {

/// How to serve.
struct TServeArguments {
  TServerOptions server;
  std::optional<double> seconds;  ///< from one collection to the next; 0: there is but one
  std::optional<std::string> user;
  bool keepsPrivileges = false;
};

/// The command that others talk to.
class TServeCommand {
 public:
  TServeCommand() = delete;

  /// Serves until SIGINT or SIGTERM. What goes wrong before is a TCommandError.
  static int Run(const TCommandContext& context, const TServeArguments& arguments);
};

}  // namespace NZELVYR20
