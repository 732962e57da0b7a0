#include "TCommandSet.h"

#include <string>
#include <utility>

namespace NZELVYR20 {

CLI::App* TCommandSet::Add(const std::string& name, const std::string& help, TGetNeeds needs,
                           TCommand command) {
  CLI::App* subCommand = app_.add_subcommand(name, help)->group("Commands");
  // Unlike a plain callback, this one also runs for a command that stands after "--".
  subCommand->parse_complete_callback([this, needs, command] {
    needs_ = needs;
    command_ = command;
  });
  return subCommand;
}

void TCommandSet::SetDefault(ENeeds needs, TCommand command) {
  needs_ = [needs] { return needs; };
  command_ = std::move(command);
}

TCommand TCommandSet::Render(TRender render) {
  return [render = std::move(render)](const TCommandContext& context) {
    context.write(render(context.nameSpace));
    return 0;
  };
}

}  // namespace NZELVYR20
