#include "TCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "TAssociationCommands.h"
#include "TClassCommands.h"
#include "TCommandError.h"
#include "TInstanceCommands.h"
#include "TMofArguments.h"
#include "TMofCommands.h"
#include "TSuggestion.h"

namespace NZELVYR20 {
namespace {

using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;

constexpr auto kVersion = "vyrhost " PROGRAM_VERSION;

constexpr auto kFooter =
    "An object path is a class name with key values, as 'instances' prints it:\n"
    "  vyrhost show 'CIM_ProcessorCore.InstanceID=\"socket0/core0\"'\n\n"
    "Options may also follow the command.\n"
    "Exit status: 0 for success, 1 for a failure, 2 for a wrong command line.";

/// What follows the name of a command.
struct TArguments {
  std::string name;
  bool isDeep = true;
  bool isTree = false;
  bool isInherited = false;
  TInstanceCommands::EShow show = TInstanceCommands::EShow::kDisplay;
  TTraversal traversal;
};

using TCommand = std::function<std::string(const TNamespacePtr&, const TArguments&)>;

class TParser {
 public:
  TParser();

  TInvocation Parse(int argc, char** argv);

 private:
  void AddHostOptions();
  void AddInstanceCommands();
  void AddClassCommands();
  void AddMofCommand();
  void AddAssociationCommands();
  void AddTraversalOptions(CLI::App& command, const std::string& resultClassHelp,
                           const std::string& roleHelp);
  CLI::App* AddCommand(const std::string& name, const std::string& help, ENeeds needs,
                       TCommand command);

  CLI::App* FindNamedCommand() const;
  ENeeds GetNeeds() const;
  TInvocation Print(const std::string& text) const;
  std::vector<std::string> ListOptions() const;
  std::string Suggest(const std::string& surplus) const;
  std::string DescribeError(const CLI::ParseError& error) const;
  std::string HelpCommand() const;

  CLI::App app_;
  THostOptions options_;
  TArguments arguments_;
  ENeeds needs_ = ENeeds::kInstances;
  TCommand command_ = [](const TNamespacePtr& nameSpace, const TArguments&) {
    return TInstanceCommands(nameSpace).Overview();
  };
};

TParser::TParser()
    : app_(
          "Collects the data of this machine into an in-memory CIM repository and prints it.\n"
          "Without a command: everything that was collected, class by class.",
          "vyrhost") {
  app_.fallthrough();
  app_.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app_.get_formatter()->label("Positionals", "Arguments");
  app_.get_formatter()->label("REQUIRED", "");
  app_.require_subcommand(0, 1);
  app_.footer(kFooter);
  app_.set_help_flag("-h,--help", "Print this help");
  app_.set_version_flag("--version", kVersion, "Print the version");
  AddHostOptions();
  TMofArguments::AddTo(app_, options_);
  AddInstanceCommands();
  AddClassCommands();
  AddAssociationCommands();
}

void TParser::AddHostOptions() {
  app_.add_option("--plugin", options_.plugin,
                  "The repository's plug-in (default: libinmem.nsp.so beside the program)")
      ->type_name("PATH");
  app_.add_option("--root", options_.root,
                  "Read a saved tree of a machine's files instead of this machine's")
      ->type_name("DIR");
  app_.add_option("--log-level", options_.logLevel,
                  "The highest level of log messages to print (default: 3; -1 for none)")
      ->type_name("N");
  app_.add_flag("--quiet", options_.isQuiet,
                "Do not report what could not be read; of MOF, report errors only");
}

CLI::App* TParser::AddCommand(const std::string& name, const std::string& help, ENeeds needs,
                              TCommand command) {
  CLI::App* subCommand = app_.add_subcommand(name, help)->group("Commands");
  // Unlike a plain callback, this one also runs for a command that stands after "--".
  subCommand->parse_complete_callback([this, needs, command] {
    needs_ = needs;
    command_ = command;
  });
  return subCommand;
}

void TParser::AddInstanceCommands() {
  CLI::App* instances =
      AddCommand("instances", "List the instances of a class and its subclasses",
                 ENeeds::kInstances, [](const TNamespacePtr& nameSpace, const TArguments& given) {
                   return TInstanceCommands(nameSpace).List(given.name, given.isDeep);
                 });
  instances->add_option("CLASS", arguments_.name, "The class")->required()->type_name("");
  instances->add_flag("--deep,!--no-deep", arguments_.isDeep,
                      "With or without the instances of subclasses (default: with)");

  CLI::App* show =
      AddCommand("show", "Show one instance with all its properties", ENeeds::kInstances,
                 [](const TNamespacePtr& nameSpace, const TArguments& given) {
                   return TInstanceCommands(nameSpace).Show(given.name, given.show);
                 });
  show->add_option("OBJECT-PATH", arguments_.name, "The instance")->required()->type_name("");
  CLI::Option* raw = show->add_flag_callback(
      "--raw", [this] { arguments_.show = TInstanceCommands::EShow::kRaw; },
      "Print values as they are stored, without texts and units");
  show->add_flag_callback(
          "--json", [this] { arguments_.show = TInstanceCommands::EShow::kJson; },
          "Print stored values and texts as JSON")
      ->excludes(raw);
}

void TParser::AddClassCommands() {
  CLI::App* classes =
      AddCommand("classes", "List the classes, or draw their hierarchy", ENeeds::kSchema,
                 [](const TNamespacePtr& nameSpace, const TArguments& given) {
                   const TClassCommands commands(nameSpace);
                   return given.isTree ? commands.Tree(given.name) : commands.List(given.name);
                 });
  classes->add_option("CLASS", arguments_.name, "This class and its subclasses only")
      ->type_name("");
  classes->add_flag("--tree", arguments_.isTree, "Draw the hierarchy");

  CLI::App* describe = AddCommand("class", "Describe one class", ENeeds::kSchema,
                                  [](const TNamespacePtr& nameSpace, const TArguments& given) {
                                    return TClassCommands(nameSpace).Describe(given.name);
                                  });
  describe->add_option("CLASS", arguments_.name, "The class")->required()->type_name("");
  AddMofCommand();
}

void TParser::AddMofCommand() {
  CLI::App* mof =
      AddCommand("mof", "Print one class, or everything, as MOF", ENeeds::kInstances,
                 [classes = options_.mofOptions.referenceClasses](const TNamespacePtr& nameSpace,
                                                                  const TArguments& given) {
                   return TMofCommands(nameSpace, *classes).Write(given.name, given.isInherited);
                 });
  CLI::Option* name = mof->add_option("CLASS", arguments_.name, "This class only")->type_name("");
  mof->add_flag("--inherited", arguments_.isInherited, "With what the class inherited")
      ->needs(name);
}

void TParser::AddAssociationCommands() {
  CLI::App* associators =
      AddCommand("associators", "List the instances that are associated with one",
                 ENeeds::kInstances, [](const TNamespacePtr& nameSpace, const TArguments& given) {
                   return TAssociationCommands(nameSpace).Associators(given.traversal);
                 });
  AddTraversalOptions(*associators, "Only results of this class or a subclass",
                      "The property of the association that is the given instance's end");
  associators
      ->add_option("--assoc-class", arguments_.traversal.assocClass,
                   "Only through associations of this class or a subclass")
      ->type_name("CLASS");
  associators
      ->add_option("--result-role", arguments_.traversal.resultRole,
                   "The property of the association that is the results' end")
      ->type_name("PROPERTY");

  CLI::App* references =
      AddCommand("references", "List the association instances that refer to one",
                 ENeeds::kInstances, [](const TNamespacePtr& nameSpace, const TArguments& given) {
                   return TAssociationCommands(nameSpace).References(given.traversal);
                 });
  AddTraversalOptions(*references, "Only associations of this class or a subclass",
                      "Only where this property of the association refers to the instance");
}

void TParser::AddTraversalOptions(CLI::App& command, const std::string& resultClassHelp,
                                  const std::string& roleHelp) {
  command.add_option("OBJECT-PATH", arguments_.traversal.path, "The instance to start from")
      ->required()
      ->type_name("");
  command.add_option("--result-class", arguments_.traversal.resultClass, resultClassHelp)
      ->type_name("CLASS");
  command.add_option("--role", arguments_.traversal.role, roleHelp)->type_name("PROPERTY");
}

TInvocation TParser::Parse(int argc, char** argv) {
  try {
    app_.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Print(app_.help());
  } catch (const CLI::CallForVersion&) {
    return Print(std::string(kVersion) + "\n");
  } catch (const CLI::ParseError& error) {
    throw TUsageError(DescribeError(error), HelpCommand());
  }
  return {options_, GetNeeds(),
          [command = command_, arguments = arguments_](const TNamespacePtr& nameSpace) {
            return command(nameSpace, arguments);
          }};
}

/// One class can be written without instances, everything cannot.
ENeeds TParser::GetNeeds() const {
  return app_.got_subcommand("mof") && !arguments_.name.empty() ? ENeeds::kSchema : needs_;
}

TInvocation TParser::Print(const std::string& text) const {
  return {options_, ENeeds::kNothing, [text](const TNamespacePtr&) { return text; }};
}

/// Empty when the error came before a command.
CLI::App* TParser::FindNamedCommand() const {
  const std::vector<CLI::App*> commands = app_.get_subcommands();
  return commands.empty() ? nullptr : commands.front();
}

std::vector<std::string> TParser::ListOptions() const {
  std::vector<std::string> names;
  for (const CLI::App* app : std::initializer_list<const CLI::App*>{&app_, FindNamedCommand()}) {
    if (app == nullptr) continue;
    for (const CLI::Option* option : app->get_options()) {
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
  }
  return names;
}

/// What may have been meant by an argument for which there is no use.
std::string TParser::Suggest(const std::string& surplus) const {
  if (surplus.rfind('-', 0) == 0) {
    return TSuggestion::For(surplus.substr(0, surplus.find('=')), ListOptions());
  }
  if (FindNamedCommand()) return "";
  std::vector<std::string> names;
  for (const CLI::App* command : app_.get_subcommands({})) names.push_back(command->get_name());
  return TSuggestion::For(surplus, names);
}

/// A surplus argument is the likeliest mistake, whatever else is wrong; the parser's own words
/// come last in that case, and list all of them.
std::string TParser::DescribeError(const CLI::ParseError& error) const {
  const std::vector<std::string> surplus = app_.remaining(true);
  const auto first = std::find_if(surplus.begin(), surplus.end(),
                                  [](const std::string& argument) { return argument != "--"; });
  if (first == surplus.end()) return error.what();
  const std::string kind = first->rfind('-', 0) == 0 ? "unknown option "
                           : FindNamedCommand()      ? "unexpected argument "
                                                     : "unknown command ";
  return kind + *first + Suggest(*first);
}

std::string TParser::HelpCommand() const {
  const CLI::App* command = FindNamedCommand();
  return "vyrhost " + (command ? command->get_name() + " " : std::string()) + "--help";
}

}  // namespace

TInvocation TCommandLine::Parse(int argc, char** argv) { return TParser().Parse(argc, argv); }

}  // namespace NZELVYR20
