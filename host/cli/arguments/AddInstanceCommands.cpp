#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AddCommands.h"
#include "PrintFirstPage.h"
#include "TElementFinder.h"
#include "TFormatOption.h"
#include "TInstanceCommands.h"
#include "TInstanceJson.h"
#include "TInstanceQuery.h"
#include "TInstanceWriter.h"
#include "TMofWriteOrder.h"
#include "TPathForm.h"
#include "TRepository.h"
#include "WritePaths.h"

namespace NZELVYR20 {
namespace {

constexpr auto kFormatHelp = "table, json, jsonl, csv or mof";

struct TFormArguments {
  std::optional<EFormat> format;
  bool isRaw = false;

  /// As it was given, before the command or after it.
  std::optional<EFormat> Find(const TCommandContext& context) const {
    return format ? format : context.options.format;
  }

  TInstanceWriter MakeWriter(const TCommandContext& context) const {
    return {{Find(context).value_or(EFormat::kTable), isRaw, context.repository->GetOrigin(),
             context.terminal},
            context.write};
  }
};

struct TListArguments : TFormArguments {
  TInstanceQuery query;
  std::vector<std::string> properties;
  bool isCount = false;
  TPathForm form;
};

struct TShowArguments : TFormArguments {
  std::string path;
};

void List(const TListArguments& given, const TCommandContext& context) {
  const TInstanceList instances = given.query.List(context.nameSpace);
  if (given.isCount) {
    context.write(std::to_string(instances.size()) + '\n');
  } else if (!given.properties.empty()) {
    const auto cimClass = TElementFinder(context.nameSpace).FindClass(given.query.className);
    given.MakeWriter(context).WriteList(
        instances, TPropertyChoice::Name(*cimClass, given.query.isDeep, given.properties));
  } else if (given.isRaw || given.Find(context)) {
    given.MakeWriter(context).WriteList(instances);
  } else {
    WritePaths(instances, {given.form.IsShort(context.terminal), !given.query.sort.empty()},
               context.write);
  }
}

void Show(const TShowArguments& given, const TCommandContext& context) {
  const auto format = given.Find(context).value_or(EFormat::kTable);
  const auto instance = TElementFinder(context.nameSpace).FindInstance(given.path);
  if (format == EFormat::kTable) {
    context.write(TInstanceCommands::Show(*instance, given.isRaw, context.terminal));
  } else if (format == EFormat::kJson) {
    context.write(TInstanceJson::Write(*instance, ListProperties(*instance)) + '\n');
  } else {
    given.MakeWriter(context).WriteWhole({instance});
  }
}

/// Instances after those to which they refer.
TInstanceList ListEverything(ICIMNamespace& nameSpace) {
  return TMofWriteOrder::ListInstances(TMofWriteOrder::ListClasses(nameSpace));
}

void ShowAll(const TFormArguments& given, const TCommandContext& context) {
  if (given.Find(context).value_or(EFormat::kTable) == EFormat::kTable) {
    TInstanceCommands::Overview(*context.nameSpace, context.terminal, context.write);
  } else {
    given.MakeWriter(context).WriteWhole(ListEverything(*context.nameSpace));
  }
}

/// The command that does this with what it was given.
template <class TGiven>
TCommand Command(const std::shared_ptr<TGiven>& given,
                 void (*perform)(const TGiven&, const TCommandContext&)) {
  return [given, perform](const TCommandContext& context) {
    perform(*given, context);
    return 0;
  };
}

void AddSelection(CLI::App& list, TInstanceQuery& query) {
  list.add_option("CLASS", query.className, "The class")->required()->type_name("");
  list.add_flag("--deep,!--no-deep", query.isDeep,
                "With or without the instances of subclasses (default: with)");
  list.add_option("--where", query.where, "Only those for which this SQL expression holds")
      ->type_name("EXPRESSION");
  CLI::Option* sort = list.add_option("--sort", query.sort,
                                      "In the order of this property; of -PROPERTY, downwards")
                          ->type_name("PROPERTY");
  list.add_flag("--descending", query.isDescending, "In the opposite order")->needs(sort);
  list.add_option("--limit", query.limit, "At most so many")
      ->check(CLI::Range(0, std::numeric_limits<int>::max()).description(""))
      ->type_name("N");
}

void AddInstanceList(TCommandSet& commands) {
  const auto given = std::make_shared<TListArguments>();
  CLI::App* list = commands.Add("instances", "List the instances of a class and its subclasses",
                                ENeeds::kInstances, Command(given, List));
  AddSelection(*list, given->query);
  list->add_option("--properties", given->properties, "With the values of these, in this order")
      ->delimiter(',')
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->expected(1)
      ->allow_extra_args(false)
      ->type_name("A,B,...");
  TFormatOption::AddTo(*list, given->format, kFormatHelp, true);
  list->add_flag("--raw", given->isRaw, "Values as they are stored, without texts and units");
  given->form.AddTo(*list);
  list->add_flag("--count", given->isCount, "Print only how many there are");
}

void AddInstanceShow(TCommandSet& commands) {
  const auto given = std::make_shared<TShowArguments>();
  CLI::App* show = commands.Add("show", "Show one instance with all its properties",
                                ENeeds::kInstances, Command(given, Show));
  show->add_option("OBJECT-PATH", given->path, "The instance")->required()->type_name("");
  CLI::Option* raw = show->add_flag("--raw", given->isRaw,
                                    "Print values as they are stored, without texts and units");
  CLI::Option* format = TFormatOption::AddTo(*show, given->format, kFormatHelp, true);
  show->add_flag_callback(
          "--json", [given] { given->format = EFormat::kJson; },
          "Print stored values and texts as JSON")
      ->excludes(raw)
      ->excludes(format);
}

void AddAll(TCommandSet& commands) {
  const auto given = std::make_shared<TFormArguments>();
  CLI::App* all = commands.Add("all", "Print everything that was collected, class by class",
                               ENeeds::kInstances, Command(given, ShowAll));
  TFormatOption::AddTo(*all, given->format, kFormatHelp, true);
  commands.SetDefault(ENeeds::kInstances, [given](const TCommandContext& context) {
    if (!given->Find(context)) return PrintFirstPage(context);
    ShowAll(*given, context);
    return 0;
  });
}

}  // namespace

void AddInstanceCommands(TCommandSet& commands) {
  AddAll(commands);
  AddInstanceList(commands);
  AddInstanceShow(commands);
}

}  // namespace NZELVYR20
