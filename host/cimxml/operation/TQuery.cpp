#include "TQuery.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <vector>

#include "FindOrFail.h"
#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "SelectInstances.h"
#include "TCimFailure.h"
#include "TCommandError.h"
#include "TQueryTokens.h"

namespace NZELVYR20 {
namespace {

void CheckLanguage(const std::string& language) {
  const std::string folded = FoldName(language);
  if (folded == "wql" || folded == "dmtf:cql") return;
  throw TCimFailure(ECimStatus::kQueryLanguageNotSupported,
                    "queries are in WQL or DMTF:CQL, not in " + language);
}

bool IsOperator(const std::string& word) {
  constexpr std::array kWords = {"AND", "OR", "NOT", "IS", "NULL", "LIKE", "TRUE", "FALSE"};
  return std::any_of(kWords.begin(), kWords.end(),
                     [&](const char* known) { return CompareFolded(known, word) == 0; });
}

std::string SqlText(const std::string& text) {
  std::string quoted = "'";
  for (const char character : text) quoted += std::string(character == '\'' ? 2 : 1, character);
  return quoted + '\'';
}

/// "*" or names.
std::vector<std::string> TakeNames(TQueryTokens& tokens) {
  std::vector<std::string> names;
  if (tokens.Accept("*")) return names;
  do {
    names.push_back(tokens.TakeWord());
    if (tokens.Accept(".")) names.back() += '.' + tokens.TakeWord();
  } while (tokens.Accept(","));
  return names;
}

}  // namespace

TQuery::TQuery(const std::string& language, const std::string& text,
               boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {
  CheckLanguage(language);
  TQueryTokens tokens(text);
  if (!tokens.Accept("SELECT")) FailQuery("SELECT is missing");
  const std::vector<std::string> names = TakeNames(tokens);
  if (!tokens.Accept("FROM")) FailQuery("FROM is missing");
  const std::string className = tokens.TakeWord();
  class_ = FindOrFail([&] { return namespace_->GetClass(className, {}); },
                      ECimStatus::kInvalidQuery, "class " + className);
  if (!names.empty()) form_.properties.emplace();
  for (const std::string& name : names) form_.properties->insert(FoldName(FindProperty(name)));
  if (tokens.Accept("WHERE")) {
    do {
      condition_ += ReadCondition(tokens);
    } while (!tokens.IsAtEnd());
  }
  if (!tokens.IsAtEnd()) FailQuery("not understood: " + tokens.Peek().text);
}

TInstanceList TQuery::Select() const {
  if (condition_.empty()) return ListInstances(*class_, true);
  try {
    return SelectInstances(namespace_, class_->GetName({}), true, condition_);
  } catch (const TCommandError& failure) {
    throw TCimFailure(ECimStatus::kInvalidQuery, failure.what());
  }
}

/// A property's name, perhaps after that of the class and a full stop.
std::string TQuery::FindProperty(const std::string& name) const {
  const std::size_t stop = name.find('.');
  if (stop != std::string::npos && CompareFolded(name.substr(0, stop), class_->GetName({})) != 0) {
    FailQuery("not the class that is asked: " + name.substr(0, stop));
  }
  const std::string property = stop == std::string::npos ? name : name.substr(stop + 1);
  return FindOrFail([&] { return class_->GetPropertyDecl(property, {}); },
                    ECimStatus::kInvalidQuery, "property " + property)
      ->GetName({});
}

/// The next part of the condition in SQL, which sees to the order of parts. Words are operators or
/// properties, so that no function is called and no other table named.
std::string TQuery::ReadCondition(TQueryTokens& tokens) const {
  TQueryToken token = tokens.Take();
  switch (token.kind) {
    case TQueryToken::EKind::kText:
      return ' ' + SqlText(token.text);
    case TQueryToken::EKind::kWord:
      if (IsOperator(token.text)) return ' ' + token.text;
      if (tokens.Accept(".")) token.text += '.' + tokens.TakeWord();
      if (tokens.Peek().text == "(") FailQuery("there is no function " + token.text);
      return " \"" + FindProperty(token.text) + '"';
    case TQueryToken::EKind::kMark:
      if (token.text == "," || token.text == "." || token.text == "*") {
        FailQuery("not understood: " + token.text);
      }
      return ' ' + token.text;
    default:
      return ' ' + token.text;
  }
}

}  // namespace NZELVYR20
