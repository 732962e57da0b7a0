#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "EFormat.h"
#include "ICIMNamespace.h"
#include "TMachineCollector.h"
#include "TMofOptions.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

class TRepository;

/// The options that all commands share.
struct THostOptions {
  std::optional<std::string> plugin;  ///< none: the plug-in beside the program
  std::string root = "/";
  TExtraAreas extras;
  std::optional<int> logLevel;  ///< none: the logger's own threshold
  bool isQuiet = false;
  std::optional<EFormat> format;      ///< given before the command, or without one
  bool isEmpty = false;               ///< neither the program's schema nor the machine's data
  std::vector<std::string> mofFiles;  ///< files and folders of the user's own
  TMofOptions mofOptions;
};

/// How much of the repository a command needs; each step includes the ones before.
enum class ENeeds { kNothing, kSchema, kInstances };

/// What a command works on.
struct TCommandContext {
  const THostOptions& options;
  /// Empty for ENeeds::kNothing, and so is the next.
  TRepository* repository;
  boost::shared_ptr<ICIMNamespace> nameSpace;
  TWriteText write;
  /// What was written goes out now, for a command that takes its time.
  std::function<void()> flush;
  TTerminal terminal;
};

/// Writes the output and returns the exit status; throws TCommandError.
using TCommand = std::function<int(const TCommandContext& context)>;

/// What the user asked for.
struct TInvocation {
  THostOptions options;
  ENeeds needs = ENeeds::kInstances;
  TCommand command;
};

}  // namespace NZELVYR20
