#include <memory>
#include <string>

#include "AddCommands.h"
#include "TInstanceCommands.h"
#include "TPathForm.h"

namespace NZELVYR20 {
namespace {

struct TInstanceArguments {
  std::string name;
  bool isDeep = true;
  TPathForm form;
  TInstanceCommands::EShow show = TInstanceCommands::EShow::kDisplay;
};

void AddList(TCommandSet& commands) {
  const auto given = std::make_shared<TInstanceArguments>();
  const auto render = [given](const TCommandContext& context) {
    context.write(TInstanceCommands(context.nameSpace)
                      .List(given->name, given->isDeep, given->form.IsShort(context.terminal)));
    return 0;
  };
  CLI::App* list = commands.Add("instances", "List the instances of a class and its subclasses",
                                ENeeds::kInstances, render);
  list->add_option("CLASS", given->name, "The class")->required()->type_name("");
  list->add_flag("--deep,!--no-deep", given->isDeep,
                 "With or without the instances of subclasses (default: with)");
  given->form.AddTo(*list);
}

void AddShow(TCommandSet& commands) {
  const auto given = std::make_shared<TInstanceArguments>();
  CLI::App* show =
      commands.Add("show", "Show one instance with all its properties", ENeeds::kInstances,
                   TCommandSet::Render([given](const auto& nameSpace) {
                     return TInstanceCommands(nameSpace).Show(given->name, given->show);
                   }));
  show->add_option("OBJECT-PATH", given->name, "The instance")->required()->type_name("");
  CLI::Option* raw = show->add_flag_callback(
      "--raw", [given] { given->show = TInstanceCommands::EShow::kRaw; },
      "Print values as they are stored, without texts and units");
  show->add_flag_callback(
          "--json", [given] { given->show = TInstanceCommands::EShow::kJson; },
          "Print stored values and texts as JSON")
      ->excludes(raw);
}

}  // namespace

void AddInstanceCommands(TCommandSet& commands) {
  commands.SetDefault(ENeeds::kInstances, TCommandSet::Render([](const auto& nameSpace) {
                        return TInstanceCommands(nameSpace).Overview();
                      }));
  AddList(commands);
  AddShow(commands);
}

}  // namespace NZELVYR20
