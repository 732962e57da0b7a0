#pragma once

#include <CLI/CLI.hpp>
#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "ICIMNamespace.h"
#include "TInvocation.h"

namespace NZELVYR20 {

/// The commands of a command line, and which of them was given.
class TCommandSet {
 public:
  using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;
  /// What a command needs, asked when the whole command line is known.
  using TGetNeeds = std::function<ENeeds()>;
  /// Renders the whole output of a command that is always a success.
  using TRender = std::function<std::string(const TNamespacePtr& nameSpace)>;

  /// Both outlive the object; `options` is filled when the program's arguments are parsed.
  TCommandSet(CLI::App& app, THostOptions& options) : app_(app), options_(options) {}

  /// Adds a command. What it is given goes into an object of its own, which the command holds.
  CLI::App* Add(const std::string& name, const std::string& help, TGetNeeds needs,
                TCommand command);
  CLI::App* Add(const std::string& name, const std::string& help, ENeeds needs, TCommand command) {
    return Add(
        name, help, [needs] { return needs; }, std::move(command));
  }

  /// The command that works where none is given.
  void SetDefault(ENeeds needs, TCommand command);

  /// A command that renders a text.
  static TCommand Render(TRender render);

  THostOptions& GetOptions() const { return options_; }
  /// Of the command that was given.
  ENeeds GetNeeds() const { return needs_(); }
  const TCommand& GetCommand() const { return command_; }

 private:
  CLI::App& app_;
  THostOptions& options_;
  TGetNeeds needs_;
  TCommand command_;
};

}  // namespace NZELVYR20
