#include "TCompletion.h"

#include <algorithm>
#include <initializer_list>
#include <set>
#include <utility>

#include "PathCandidates.h"

namespace NZELVYR20 {
namespace {

/// What is looked for, and as much of it as has been typed.
struct TWanted {
  enum class EKind { kNothing, kWords, kFiles, kFolders, kClasses, kPaths };
  EKind kind = EKind::kNothing;
  std::string typed;
  std::vector<std::string> words;
};

using EKind = TWanted::EKind;

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// The parser's own look-up ends the program where memory lacks.
bool HasName(const CLI::Option& option, const std::string& word) {
  const auto& names = option.get_lnames();
  return std::any_of(names.begin(), names.end(),
                     [&word](const std::string& name) { return "--" + name == word; });
}

bool TakesValue(const CLI::Option* option) {
  return option != nullptr && option->get_items_expected_max() > 0;
}

std::vector<std::string> SplitWords(const std::string& text) {
  return CLI::detail::split(text, ',');
}

/// "{table,json}" in the name of a value: these, and nothing else.
TWanted DescribeValue(const CLI::Option& option, const std::string& typed) {
  const std::string name = option.get_type_name();
  const std::size_t start = name.find('{');
  if (start != std::string::npos) {
    return {EKind::kWords, typed, SplitWords(name.substr(start + 1, name.find('}') - start - 1))};
  }
  if (name == "CLASS") return {EKind::kClasses, typed, {}};
  if (name == "DIR") return {EKind::kFolders, typed, {}};
  return {name == "PATH" || name == "FILE" ? EKind::kFiles : EKind::kNothing, typed, {}};
}

TWanted DescribeArgument(const CLI::Option& option, const std::string& typed) {
  const std::string name = option.get_name(true);
  if (Contains(name, "PATH")) return {EKind::kPaths, typed, {}};
  if (name == "CLASS") return {EKind::kClasses, typed, {}};
  const bool isFile = name == "FILE" || name == "OLD" || name == "NEW";
  return {isFile ? EKind::kFiles : EKind::kNothing, typed, {}};
}

/// The command line as far as it has been typed.
class TTypedLine {
 public:
  explicit TTypedLine(CLI::App& app) : app_(app) {}

  /// Goes past a word that stands complete.
  void Add(const std::string& word);
  /// What is wanted for the last word.
  TWanted Describe(const std::string& word) const;

  /// The options of the program itself, with their values.
  const std::vector<std::string>& GetHostWords() const { return hostWords_; }

 private:
  bool IsOption(const std::string& word) const {
    return !isPastOptions_ && word.rfind('-', 0) == 0;
  }
  const CLI::Option* FindOption(const std::string& word) const;
  bool IsHosts(const CLI::Option* option) const;
  void AddOption(const std::string& word);
  std::vector<std::string> ListOptions() const;
  TWanted DescribePositional(const std::string& word) const;

  CLI::App& app_;
  CLI::App* command_ = nullptr;
  const CLI::Option* pending_ = nullptr;  ///< one whose value is to follow
  std::size_t arguments_ = 0;
  bool isPastOptions_ = false;
  std::vector<std::string> hostWords_;
};

const CLI::Option* TTypedLine::FindOption(const std::string& word) const {
  for (const CLI::App* app : std::initializer_list<const CLI::App*>{command_, &app_}) {
    if (app == nullptr) continue;
    for (const CLI::Option* option : app->get_options()) {
      if (HasName(*option, word.substr(0, word.find('=')))) return option;
    }
  }
  return nullptr;
}

bool TTypedLine::IsHosts(const CLI::Option* option) const {
  const auto known = std::as_const(app_).get_options();
  return std::find(known.begin(), known.end(), option) != known.end();
}

void TTypedLine::AddOption(const std::string& word) {
  const CLI::Option* const option = FindOption(word);
  if (TakesValue(option) && !Contains(word, "=")) {
    pending_ = option;
  } else if (IsHosts(option) && (TakesValue(option) || word == "--empty")) {
    hostWords_.push_back(word);
  }
}

void TTypedLine::Add(const std::string& word) {
  if (pending_ != nullptr) {
    if (IsHosts(pending_)) hostWords_.push_back(pending_->get_name() + '=' + word);
    pending_ = nullptr;
  } else if (word == "--") {
    isPastOptions_ = true;
  } else if (IsOption(word)) {
    AddOption(word);
  } else if (command_ == nullptr) {
    const std::vector<CLI::App*> named =
        app_.get_subcommands([&word](CLI::App* command) { return command->get_name() == word; });
    if (!named.empty()) command_ = named.front();
  } else {
    ++arguments_;
  }
}

std::vector<std::string> TTypedLine::ListOptions() const {
  std::set<std::string> names;
  for (const CLI::App* app : std::initializer_list<const CLI::App*>{&app_, command_}) {
    if (app == nullptr) continue;
    for (const CLI::Option* option : app->get_options()) {
      for (const std::string& name : option->get_lnames()) names.insert("--" + name);
    }
  }
  return {names.begin(), names.end()};
}

TWanted TTypedLine::DescribePositional(const std::string& word) const {
  std::size_t place = 0;
  for (const CLI::Option* option : std::as_const(*command_).get_options()) {
    if (option->get_positional() && place++ == arguments_) return DescribeArgument(*option, word);
  }
  return {};
}

TWanted TTypedLine::Describe(const std::string& word) const {
  if (pending_ != nullptr) return DescribeValue(*pending_, word);
  if (IsOption(word)) {
    const CLI::Option* const option = FindOption(word);
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) return {EKind::kWords, word, ListOptions()};
    return TakesValue(option) ? DescribeValue(*option, word.substr(equals + 1)) : TWanted();
  }
  if (command_ != nullptr) return DescribePositional(word);
  TWanted commands{EKind::kWords, word, {}};
  for (const CLI::App* command : std::as_const(app_).get_subcommands({})) {
    commands.words.push_back(command->get_name());
  }
  return commands;
}

std::vector<std::string> ListCandidates(const TWanted& wanted,
                                        const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  switch (wanted.kind) {
    case EKind::kFiles:
      return {"-f"};
    case EKind::kFolders:
      return {"-d"};
    case EKind::kClasses:
      return ListClassCandidates(*nameSpace, wanted.typed);
    case EKind::kPaths:
      return ListPathCandidates(nameSpace, wanted.typed);
    default:
      break;
  }
  std::vector<std::string> candidates;
  std::copy_if(wanted.words.begin(), wanted.words.end(), std::back_inserter(candidates),
               [&](const std::string& word) { return word.rfind(wanted.typed, 0) == 0; });
  return candidates;
}

ENeeds NeedsFor(EKind kind) {
  if (kind == EKind::kPaths) return ENeeds::kInstances;
  return kind == EKind::kClasses ? ENeeds::kSchema : ENeeds::kNothing;
}

}  // namespace

std::vector<std::string> TCompletion::TakeWords(std::vector<std::string>& arguments) {
  const std::vector<std::string> call{"complete", "--"};
  const auto start = std::search(arguments.begin(), arguments.end(), call.begin(), call.end());
  const auto first = static_cast<std::size_t>(start - arguments.begin());
  if (arguments.size() < first + 3) return {};
  std::vector<std::string> words;
  for (std::size_t i = first + call.size(); i < arguments.size(); ++i) {
    words.push_back(arguments[i]);
  }
  arguments.resize(first);
  return words;
}

TCompletion::TCompletion(CLI::App& app, const std::vector<std::string>& words) {
  TTypedLine line(app);
  std::for_each(words.begin(), words.end() - 1,
                [&line](const std::string& word) { line.Add(word); });
  const TWanted wanted = line.Describe(words.back());
  hostWords_ = line.GetHostWords();
  needs_ = NeedsFor(wanted.kind);
  command_ = [wanted](const TCommandContext& context) {
    for (const std::string& candidate : ListCandidates(wanted, context.nameSpace)) {
      context.write(candidate + '\n');
    }
    return 0;
  };
}

}  // namespace NZELVYR20
