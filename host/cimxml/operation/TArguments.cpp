#include "TArguments.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include "FoldName.h"
#include "ScalarText.h"
#include "TCimFailure.h"
#include "TPathReader.h"

namespace NZELVYR20 {
namespace {

[[noreturn]] void FailParameter(const std::string& name, const std::string& why) {
  throw TCimFailure(ECimStatus::kInvalidParameter, "parameter " + name + ": " + why);
}

pugi::xml_node FirstElement(const pugi::xml_node& node) {
  return node.find_child(
      [](const pugi::xml_node& child) { return child.type() == pugi::node_element; });
}

bool IsFlag(const std::string& text) {
  return CompareFolded(text, "true") == 0 || CompareFolded(text, "false") == 0;
}

bool HasForm(const pugi::xml_node& value, EForm form) {
  const std::string_view element = value.name();
  const auto isName = [](const pugi::xml_node& name) {
    return name.name() == std::string("VALUE");
  };
  switch (form) {
    case EForm::kClass:
      return element == "CLASSNAME";
    case EForm::kInstance:
      return element == "INSTANCENAME";
    case EForm::kObject:
      return element == "CLASSNAME" || element == "INSTANCENAME";
    case EForm::kNames:
      return element == "VALUE.ARRAY" &&
             std::all_of(value.children().begin(), value.children().end(), isName);
    case EForm::kFlag:
      return element == "VALUE" && IsFlag(ReadText(value));
    case EForm::kNumber:
    case EForm::kText:
      break;
  }
  return element == "VALUE";
}

}  // namespace

TArguments::TArguments(const std::vector<TParameter>& parameters, const pugi::xml_node& call) {
  for (const pugi::xml_node& given : call.children("IPARAMVALUE")) {
    const std::string name = given.attribute("NAME").value();
    const auto known = std::find_if(
        parameters.begin(), parameters.end(),
        [&](const TParameter& parameter) { return CompareFolded(parameter.name, name) == 0; });
    if (known == parameters.end()) FailParameter(name, "unknown");
    const pugi::xml_node value = FirstElement(given);
    if (!values_.emplace(known->name, value).second) FailParameter(name, "given twice");
    if (!value.empty() && !HasForm(value, known->form)) FailParameter(name, "of another form");
    if (known->form == EForm::kNumber) Number(known->name);
  }
  for (const TParameter& parameter : parameters) {
    const bool isMissing = parameter.isRequired && Get(parameter.name).empty();
    if (isMissing) FailParameter(parameter.name, "missing");
  }
}

pugi::xml_node TArguments::Get(const std::string& name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? pugi::xml_node() : found->second;
}

bool TArguments::Flag(const std::string& name, bool otherwise) const {
  const std::optional<std::string> text = Text(name);
  return text ? CompareFolded(*text, "true") == 0 : otherwise;
}

std::optional<std::uint32_t> TArguments::Number(const std::string& name) const {
  const std::optional<std::string> text = Text(name);
  if (!text) return std::nullopt;
  const std::string bare = BareText(*text);
  const char* const end = bare.data() + bare.size();
  std::uint32_t number = 0;
  const auto result = std::from_chars(bare.data() + (bare.find('+') == 0 ? 1 : 0), end, number);
  if (result.ec != std::errc() || result.ptr != end) FailParameter(name, "no number");
  return number;
}

std::optional<std::string> TArguments::Text(const std::string& name) const {
  const pugi::xml_node value = Get(name);
  if (value.empty()) return std::nullopt;
  return ReadText(value);
}

std::optional<std::set<std::string>> TArguments::Names(const std::string& name) const {
  const pugi::xml_node value = Get(name);
  if (value.empty()) return std::nullopt;
  std::set<std::string> names;
  for (const pugi::xml_node& element : value.children("VALUE")) {
    names.insert(FoldName(ReadText(element)));
  }
  return names;
}

}  // namespace NZELVYR20
