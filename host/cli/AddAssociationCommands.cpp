#include <memory>
#include <string>

#include "AddCommands.h"
#include "TAssociationCommands.h"

namespace NZELVYR20 {
namespace {

void AddTraversalOptions(CLI::App& command, TTraversal& traversal,
                         const std::string& resultClassHelp, const std::string& roleHelp) {
  command.add_option("OBJECT-PATH", traversal.path, "The instance to start from")
      ->required()
      ->type_name("");
  command.add_option("--result-class", traversal.resultClass, resultClassHelp)->type_name("CLASS");
  command.add_option("--role", traversal.role, roleHelp)->type_name("PROPERTY");
}

void AddAssociators(TCommandSet& commands) {
  const auto given = std::make_shared<TTraversal>();
  CLI::App* associators =
      commands.Add("associators", "List the instances that are associated with one",
                   ENeeds::kInstances, TCommandSet::Render([given](const auto& nameSpace) {
                     return TAssociationCommands(nameSpace).Associators(*given);
                   }));
  AddTraversalOptions(*associators, *given, "Only results of this class or a subclass",
                      "The property of the association that is the given instance's end");
  associators
      ->add_option("--assoc-class", given->assocClass,
                   "Only through associations of this class or a subclass")
      ->type_name("CLASS");
  associators
      ->add_option("--result-role", given->resultRole,
                   "The property of the association that is the results' end")
      ->type_name("PROPERTY");
}

void AddReferences(TCommandSet& commands) {
  const auto given = std::make_shared<TTraversal>();
  CLI::App* references =
      commands.Add("references", "List the association instances that refer to one",
                   ENeeds::kInstances, TCommandSet::Render([given](const auto& nameSpace) {
                     return TAssociationCommands(nameSpace).References(*given);
                   }));
  AddTraversalOptions(*references, *given, "Only associations of this class or a subclass",
                      "Only where this property of the association refers to the instance");
}

}  // namespace

void AddAssociationCommands(TCommandSet& commands) {
  AddAssociators(commands);
  AddReferences(commands);
}

}  // namespace NZELVYR20
