#include <memory>
#include <string>

#include "AddCommands.h"
#include "SecondsRange.h"
#include "TCommandError.h"
#include "THistoryCommands.h"

namespace NZELVYR20 {
namespace {

const char* const kAllHelp = "Show also what changes by nature, such as free memory";

void AddSnapshot(TCommandSet& commands) {
  const auto file = std::make_shared<std::string>();
  CLI::App* snapshot = commands.Add("snapshot", "Keep everything in a file, to compare with later",
                                    ENeeds::kInstances, [file](const TCommandContext& context) {
                                      return THistoryCommands::Snapshot(context, *file);
                                    });
  snapshot->add_option("FILE", *file, "The file, which is replaced; - for standard output")
      ->required()
      ->type_name("");
}

void AddDiff(TCommandSet& commands) {
  const auto given = std::make_shared<TDiffArguments>();
  const auto needs = [given] {
    return given->newFile.empty() ? ENeeds::kInstances : ENeeds::kNothing;
  };
  CLI::App* diff = commands.Add(
      "diff", "Tell what changed since a snapshot; exit status 3 where anything did", needs,
      [given](const TCommandContext& context) { return THistoryCommands::Diff(context, *given); });
  diff->add_option("OLD", given->oldFile, "The snapshot")->required()->type_name("");
  diff->add_option("NEW", given->newFile, "Another one (default: this machine)")->type_name("");
  diff->add_flag("--all", given->withMomentary, kAllHelp);
}

void AddWatch(TCommandSet& commands) {
  const auto given = std::make_shared<TWatchArguments>();
  const auto run = [given](const TCommandContext& context) {
    if (context.options.isEmpty || !context.options.mofFiles.empty()) {
      throw TUsageError("watch: only the machine's data can be watched, without --empty and --mof",
                        "vyrhost watch --help");
    }
    return THistoryCommands::Watch(context, *given);
  };
  CLI::App* watch =
      commands.Add("watch", "Print what changes on this machine, a line for each change",
                   ENeeds::kInstances, run);
  watch->add_option("--every", given->seconds, "From one look to the next (default: 10)")
      ->check(SecondsRange())
      ->type_name("SECONDS");
  watch->add_option("--rounds", given->rounds, "End after so many looks")->type_name("N");
  watch->add_flag("--all", given->withMomentary, kAllHelp);
}

}  // namespace

void AddHistoryCommands(TCommandSet& commands) {
  AddSnapshot(commands);
  AddDiff(commands);
  AddWatch(commands);
}

}  // namespace NZELVYR20
