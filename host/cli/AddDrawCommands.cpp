#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AddCommands.h"
#include "DrawTree.h"
#include "TElementFinder.h"
#include "TWeb.h"

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

}  // namespace

void AddDrawCommands(TCommandSet& commands) { AddTree(commands); }

}  // namespace NZELVYR20
