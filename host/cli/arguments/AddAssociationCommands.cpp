#include <memory>
#include <string>

#include "AddCommands.h"
#include "TAssociationCommands.h"
#include "TPathForm.h"
#include "WritePaths.h"

namespace NZELVYR20 {
namespace {

struct TTraversalArguments {
  TTraversal traversal;
  TPathForm form;
};

void AddTraversalOptions(CLI::App& command, TTraversalArguments& given,
                         const std::string& resultClassHelp, const std::string& roleHelp) {
  TTraversal& traversal = given.traversal;
  command.add_option("OBJECT-PATH", traversal.path, "The instance to start from")
      ->required()
      ->type_name("");
  command.add_option("--result-class", traversal.resultClass, resultClassHelp)->type_name("CLASS");
  command.add_option("--role", traversal.role, roleHelp)->type_name("PROPERTY");
  given.form.AddTo(command);
}

/// A command that lists what one of the walks finds.
template <class TWalk>
TCommand ListPaths(const std::shared_ptr<TTraversalArguments>& given, TWalk walk) {
  return [given, walk](const TCommandContext& context) {
    WritePaths((TAssociationCommands(context.nameSpace).*walk)(given->traversal),
               {given->form.IsShort(context.terminal), false}, context.write);
    return 0;
  };
}

void AddAssociators(TCommandSet& commands) {
  const auto given = std::make_shared<TTraversalArguments>();
  CLI::App* associators =
      commands.Add("associators", "List the instances that are associated with one",
                   ENeeds::kInstances, ListPaths(given, &TAssociationCommands::Associators));
  AddTraversalOptions(*associators, *given, "Only results of this class or a subclass",
                      "The property of the association that is the given instance's end");
  associators
      ->add_option("--assoc-class", given->traversal.assocClass,
                   "Only through associations of this class or a subclass")
      ->type_name("CLASS");
  associators
      ->add_option("--result-role", given->traversal.resultRole,
                   "The property of the association that is the results' end")
      ->type_name("PROPERTY");
}

void AddReferences(TCommandSet& commands) {
  const auto given = std::make_shared<TTraversalArguments>();
  CLI::App* references =
      commands.Add("references", "List the association instances that refer to one",
                   ENeeds::kInstances, ListPaths(given, &TAssociationCommands::References));
  AddTraversalOptions(*references, *given, "Only associations of this class or a subclass",
                      "Only where this property of the association refers to the instance");
}

}  // namespace

void AddAssociationCommands(TCommandSet& commands) {
  AddAssociators(commands);
  AddReferences(commands);
}

}  // namespace NZELVYR20
