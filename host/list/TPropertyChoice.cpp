#include "TPropertyChoice.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "TCommandError.h"
#include "TInstanceReader.h"
#include "TSuggestion.h"

namespace NZELVYR20 {
namespace {

/// Names as they are declared, by folded name.
using TNameMap = std::map<std::string, std::string>;

TNameMap ListDeclaredNames(ICIMClass& cimClass, bool deep) {
  TClassList classes;
  if (deep) classes = ListSubClasses(cimClass, true);
  TNameMap names;
  const auto add = [&names](const ICIMClass& owner) {
    for (const auto& declaration : ListPropertyDecls(owner)) {
      names.emplace(FoldName(declaration->GetName({})), declaration->GetName({}));
    }
  };
  add(cimClass);
  for (const auto& subClass : classes) add(*subClass);
  return names;
}

std::vector<std::string> ListValues(const TNameMap& names) {
  std::vector<std::string> values;
  values.reserve(names.size());
  for (const auto& [folded, name] : names) values.push_back(name);
  return values;
}

}  // namespace

TPropertyChoice::TPropertyChoice(std::vector<std::string> names) : names_(std::move(names)) {
  for (const std::string& name : names_) places_.emplace(FoldName(name), places_.size());
}

TPropertyChoice TPropertyChoice::Name(ICIMClass& cimClass, bool deep,
                                      const std::vector<std::string>& names) {
  const TNameMap declared = ListDeclaredNames(cimClass, deep);
  std::vector<std::string> chosen;
  for (const std::string& name : names) {
    if (name.empty()) throw TCommandError("an empty text names no property");
    const auto found = declared.find(FoldName(name));
    if (found == declared.end()) {
      throw TCommandError("class " + cimClass.GetName({}) + " has no property " + name +
                          TSuggestion::For(name, ListValues(declared)));
    }
    if (std::find(chosen.begin(), chosen.end(), found->second) == chosen.end()) {
      chosen.push_back(found->second);
    }
  }
  return TPropertyChoice(std::move(chosen));
}

TPropertyChoice TPropertyChoice::FindFilled(const TInstanceList& instances) {
  TNameMap keys;
  TNameMap others;
  std::set<const ICIMPropertyDecl*> found;
  for (const auto& instance : instances) {
    for (const auto& property : ListProperties(*instance)) {
      if (property->GetValue({}).IsNull()) continue;
      const auto declaration = property->GetDeclaration({});
      if (!found.insert(declaration.get()).second) continue;
      const std::string& name = declaration->GetName({});
      const bool isKey = TInstanceReader::ListKeyNames(*instance->GetClass({})).count(name) > 0;
      (isKey ? keys : others).emplace(FoldName(name), name);
    }
  }
  for (const auto& [folded, name] : keys) others.erase(folded);
  std::vector<std::string> names = ListValues(keys);
  for (const std::string& name : ListValues(others)) names.push_back(name);
  return TPropertyChoice(std::move(names));
}

std::vector<TPropertyChoice::TPropertyPtr> TPropertyChoice::Read(ICIMInstance& instance) const {
  std::vector<TPropertyPtr> properties(names_.size());
  for (const auto& property : ListProperties(instance)) {
    const auto place = places_.find(FoldName(TInstanceReader::NameOf(*property)));
    if (place != places_.end()) properties[place->second] = property;
  }
  return properties;
}

}  // namespace NZELVYR20
