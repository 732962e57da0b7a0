#include "TCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "AddCommands.h"
#include "TCommandError.h"
#include "TCommandSet.h"
#include "TCompletion.h"
#include "TFormatOption.h"
#include "TMofArguments.h"
#include "TSuggestion.h"

namespace NZELVYR20 {
namespace {

constexpr auto kVersion = "vyrhost " PROGRAM_VERSION;

constexpr auto kFooter =
    "An object path is a class name with key values, as 'instances' prints it, or as much of\n"
    "one as is unique:\n"
    "  vyrhost show 'CIM_ProcessorCore.InstanceID=\"socket0/core0\"'\n"
    "  vyrhost show CIM_ProcessorCore:socket0/core0\n"
    "  vyrhost show eth0\n\n"
    "Options may also follow the command.\n"
    "Exit status: 0 for success, 1 for a failure, 2 for a wrong command line, 3 where\n"
    "'diff' finds differences.";

class TParser {
 public:
  TParser();

  TInvocation Parse(int argc, char** argv);

 private:
  void AddHostOptions();

  TInvocation Complete(std::vector<std::string> arguments, const std::vector<std::string>& typed);
  void CheckFormat() const;
  CLI::App* FindNamedCommand() const;
  TInvocation Print(const std::string& text) const;
  std::vector<std::string> ListOptions() const;
  std::string Suggest(const std::string& surplus) const;
  std::string DescribeError(const CLI::ParseError& error) const;
  std::string HelpCommand() const;

  CLI::App app_;
  THostOptions options_;
  TCommandSet commands_{app_, options_};
};

TParser::TParser()
    : app_(
          "Collects the data of this machine into an in-memory CIM repository and prints it.\n"
          "Without a command: one page about the machine.",
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
  AddInstanceCommands(commands_);
  AddSqlCommand(commands_);
  AddClassCommands(commands_);
  AddMofCommand(commands_);
  AddAssociationCommands(commands_);
  AddDrawCommands(commands_);
  AddHistoryCommands(commands_);
#ifdef VYR_SERVER
  AddServeCommand(commands_);
#endif
}

void TParser::AddHostOptions() {
  app_.add_option("--plugin", options_.plugin,
                  "The repository's plug-in (default: libinmem.nsp.so beside the program)")
      ->type_name("PATH");
  app_.add_option("--root", options_.root,
                  "Read a saved tree of a machine's files instead of this machine's")
      ->type_name("DIR");
  app_.add_option_function<std::vector<std::string>>(
          "--with",
          [this](const std::vector<std::string>& areas) {
            for (const std::string& area : areas) {
              (area == "processes" ? options_.extras.processes : options_.extras.packages) = true;
            }
          },
          "Also collect what runs (processes), or what is installed (packages)")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->expected(1)
      ->allow_extra_args(false)
      ->check(CLI::IsMember({"processes", "packages"}))
      ->type_name("AREA");
  app_.add_option("--log-level", options_.logLevel,
                  "The highest level of log messages to print (default: 3; -1 for none)")
      ->type_name("N");
  app_.add_flag("--quiet", options_.isQuiet,
                "Do not report what could not be read; of MOF, report errors only");
  TFormatOption::AddTo(app_, options_.format, "Without a command: that of 'all'", true);
}

TInvocation TParser::Parse(int argc, char** argv) {
  std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  const std::vector<std::string> typed = TCompletion::TakeWords(arguments);
  try {
    if (!typed.empty()) return Complete(std::move(arguments), typed);
    app_.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Print(app_.help());
  } catch (const CLI::CallForVersion&) {
    return Print(std::string(kVersion) + "\n");
  } catch (const CLI::ParseError& error) {
    throw TUsageError(DescribeError(error), HelpCommand());
  }
  CheckFormat();
  return {options_, commands_.GetNeeds(), commands_.GetCommand()};
}

TInvocation TParser::Complete(std::vector<std::string> arguments,
                              const std::vector<std::string>& typed) {
  const TCompletion completion(app_, typed);
  const std::vector<std::string>& hostWords = completion.GetHostWords();
  arguments.insert(arguments.end(), hostWords.begin(), hostWords.end());
  std::reverse(arguments.begin(), arguments.end());  // as this parse() wants them
  app_.parse(std::move(arguments));
  return {options_, completion.GetNeeds(), completion.GetCommand()};
}

/// The program's own option also takes what stands after a command that has no such option, and
/// what the command does not write.
void TParser::CheckFormat() const {
  CLI::App* const command = FindNamedCommand();
  if (!options_.format || command == nullptr) return;
  CLI::Option* const own = command->get_option_no_throw(TFormatOption::kName);
  if (own == nullptr) {
    throw TUsageError(command->get_name() + " knows no " + TFormatOption::kName, HelpCommand());
  }
  auto given = app_.get_option(TFormatOption::kName)->as<std::string>();
  const std::string refusal = (*own->get_validator(0))(given);
  if (!refusal.empty()) {
    throw TUsageError(command->get_name() + " " + TFormatOption::kName + ": " + refusal,
                      HelpCommand());
  }
}

TInvocation TParser::Print(const std::string& text) const {
  return {options_, ENeeds::kNothing,
          TCommandSet::Render([text](const TCommandSet::TNamespacePtr&) { return text; })};
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
