#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AddCommands.h"
#include "DrawTree.h"
#include "FoldName.h"
#include "ListClasses.h"
#include "Pictures.h"
#include "TElementFinder.h"
#include "TWeb.h"
#include "WritePicture.h"

namespace NZELVYR20 {
namespace {

struct TTreeArguments {
  std::string path;
  bool isUp = false;
  bool isDown = false;
  std::optional<std::size_t> depth;
  std::vector<std::string> associations;
};

TWalk FindWalk(const TTreeArguments& given, const TElementFinder& finder) {
  TWalk walk{given.isDown || !given.isUp, given.isUp, given.depth, {}};
  for (const std::string& name : given.associations) {
    walk.associations.push_back(finder.FindAssociation(name));
  }
  return walk;
}

void AddTree(TCommandSet& commands) {
  const auto given = std::make_shared<TTreeArguments>();
  CLI::App* tree =
      commands.Add("tree", "Draw what is below an instance, or above it, along associations",
                   ENeeds::kInstances, [given](const TCommandContext& context) {
                     const TElementFinder finder(context.nameSpace);
                     const TWalk walk = FindWalk(*given, finder);
                     DrawTree(TWeb::Around(finder.FindInstance(given->path), walk),
                              context.terminal, context.write);
                     return 0;
                   });
  tree->add_option("OBJECT-PATH", given->path, "The instance to start from")
      ->required()
      ->type_name("");
  CLI::Option* up =
      tree->add_flag("--up", given->isUp, "Draw what it is part of, and what it needs");
  tree->add_flag("--down", given->isDown, "Draw its parts, and what needs it (the default)")
      ->excludes(up);
  tree->add_option("--depth", given->depth, "Only what is at most so many steps away")
      ->type_name("N");
  tree->add_option("--assoc-class", given->associations,
                   "Only along associations of this class or a subclass; may be repeated")
      ->type_name("CLASS")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false);
}

struct TGraphArguments {
  std::string subject;
  std::string format = "dot";
  std::optional<std::size_t> depth;
};

/// What is no class is taken for an instance.
bool IsClass(ICIMNamespace& nameSpace, const std::string& name) {
  const TClassList classes = ListAllClasses(nameSpace);
  return std::any_of(classes.begin(), classes.end(), [&name](const auto& cimClass) {
    return CompareFolded(cimClass->GetName({}), name) == 0;
  });
}

TPicture MakePicture(const TGraphArguments& given, const TCommandContext& context) {
  const TElementFinder finder(context.nameSpace);
  if (given.subject.empty()) return PictureOfMachine(*context.nameSpace);
  if (IsClass(*context.nameSpace, given.subject)) {
    return PictureOfClass(finder.FindClass(given.subject));
  }
  const TWalk walk{true, true, given.depth.value_or(1), {}};
  return PictureOfWeb(TWeb::Around(finder.FindInstance(given.subject), walk));
}

void AddGraph(TCommandSet& commands) {
  const auto given = std::make_shared<TGraphArguments>();
  CLI::App* graph =
      commands.Add("graph", "Picture everything, an instance with what is around it, or classes",
                   ENeeds::kInstances, [given](const TCommandContext& context) {
                     WritePicture(MakePicture(*given, context), given->format, context.write);
                     return 0;
                   });
  CLI::Option* subject =
      graph->add_option("PATH-OR-CLASS", given->subject, "An instance, or the highest class")
          ->type_name("");
  graph->add_option("--format", given->format, "dot (the default), mermaid or svg")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"dot", "mermaid", "svg"}));
  graph
      ->add_option("--depth", given->depth,
                   "Of an instance: what is at most so many steps away (default: 1)")
      ->type_name("N")
      ->needs(subject);
}

}  // namespace

void AddDrawCommands(TCommandSet& commands) {
  AddTree(commands);
  AddGraph(commands);
}

}  // namespace NZELVYR20
