#include <memory>
#include <string>

#include "AddCommands.h"
#include "TMofCommands.h"

namespace NZELVYR20 {
namespace {

struct TMofCommandArguments {
  std::string name;
  bool isInherited = false;
};

}  // namespace

void AddMofCommand(TCommandSet& commands) {
  const auto given = std::make_shared<TMofCommandArguments>();
  const auto write = [given](const TCommandContext& context) {
    TMofCommands(context.nameSpace, *context.options.mofOptions.referenceClasses)
        .Write(given->name, given->isInherited, context.write);
    return 0;
  };
  // One class can be written without instances, everything cannot.
  const auto needs = [given] { return given->name.empty() ? ENeeds::kInstances : ENeeds::kSchema; };
  CLI::App* mof = commands.Add("mof", "Print one class, or everything, as MOF", needs, write);
  CLI::Option* name = mof->add_option("CLASS", given->name, "This class only")->type_name("");
  mof->add_flag("--inherited", given->isInherited, "With what the class inherited")->needs(name);
}

}  // namespace NZELVYR20
