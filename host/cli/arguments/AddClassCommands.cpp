#include <memory>
#include <string>

#include "AddCommands.h"
#include "TClassCommands.h"

namespace NZELVYR20 {
namespace {

struct TClassArguments {
  std::string name;
  bool isTree = false;
};

void AddList(TCommandSet& commands) {
  const auto given = std::make_shared<TClassArguments>();
  CLI::App* classes = commands.Add("classes", "List the classes, or draw their hierarchy",
                                   ENeeds::kSchema, [given](const TCommandContext& context) {
                                     const TClassCommands list(context.nameSpace);
                                     if (given->isTree) {
                                       list.Tree(given->name, context.terminal, context.write);
                                     } else {
                                       context.write(list.List(given->name));
                                     }
                                     return 0;
                                   });
  classes->add_option("CLASS", given->name, "This class and its subclasses only")->type_name("");
  classes->add_flag("--tree", given->isTree, "Draw the hierarchy");
}

void AddDescription(TCommandSet& commands) {
  const auto given = std::make_shared<TClassArguments>();
  CLI::App* describe = commands.Add("class", "Describe one class", ENeeds::kSchema,
                                    TCommandSet::Render([given](const auto& nameSpace) {
                                      return TClassCommands(nameSpace).Describe(given->name);
                                    }));
  describe->add_option("CLASS", given->name, "The class")->required()->type_name("");
}

}  // namespace

void AddClassCommands(TCommandSet& commands) {
  AddList(commands);
  AddDescription(commands);
}

}  // namespace NZELVYR20
