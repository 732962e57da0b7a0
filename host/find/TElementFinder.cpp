#include "TElementFinder.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListClasses.h"
#include "TInstanceReader.h"
#include "TScopedSilence.h"
#include "TShortPathFinder.h"
#include "TShortPathReader.h"
#include "TShortPaths.h"
#include "TSuggestion.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

/// What stands between a path's namespace, if there is one, and its keys.
std::string ClassPart(const std::string& path) {
  const std::string front = path.substr(0, path.find('='));
  const std::string name = front.substr(front.rfind(':') + 1);
  return name.substr(0, name.find('.'));
}

/// A key that the path has keeps its place when it gets another value.
bool Lacks(TCIMReference path, const std::string& key) {
  const std::string given = path.ToString();
  path.AddKeyValue(key, {});
  return path.ToString().size() > given.size() && path.ToString().rfind(given, 0) == 0;
}

/// "2 keys: string Name, uint32 Number".
std::string KeysText(const ICIMClass& cimClass, const std::vector<std::string>& keys) {
  std::vector<std::string> declared;
  declared.reserve(keys.size());
  for (const std::string& key : keys) {
    declared.push_back(TypeText(cimClass.GetPropertyDecl(key, {})->GetType({})) + ' ' + key);
  }
  return TText::Count(keys.size(), "key") + ": " + TText::Join(declared, ", ");
}

/// What a path gives values to: what stands before each "=" that is not in quotes.
std::vector<std::string> ListGivenKeys(const std::string& path) {
  std::vector<std::string> names(1);
  bool isQuoted = false;
  for (std::size_t i = std::min(path.find('.'), path.size()); i < path.size(); ++i) {
    const char letter = path[i];
    if (isQuoted && letter == '\\') ++i;
    if (letter == '"') isQuoted = !isQuoted;
    if (isQuoted || letter == ' ') continue;
    if (letter == '=') {
      names.emplace_back();
    } else {
      names.back() = letter == ',' || letter == '.' ? std::string() : names.back() + letter;
    }
  }
  names.pop_back();
  return names;
}

/// What may have been meant by the first that is no key.
std::string SuggestKey(const std::string& path, const std::set<std::string>& keys) {
  std::set<std::string> known;
  for (const std::string& key : keys) known.insert(FoldName(key));
  for (const std::string& name : ListGivenKeys(path)) {
    if (known.count(FoldName(name)) > 0) continue;
    return TSuggestion::For(name, {keys.begin(), keys.end()});
  }
  return "";
}

TCommandError InstanceError(const TCIMReference& path) {
  std::vector<std::string> missing;
  for (const std::string& key : TInstanceReader::ListKeyNames(*path.GetClass())) {
    if (Lacks(path, key)) missing.push_back(key);
  }
  return TCommandError(
      "no instance " + path.ToString() +
      (missing.empty() ? "" : ": the path lacks " + KeysText(*path.GetClass(), missing)));
}

TCommandError AmbiguityError(const std::string& path, const TInstanceList& found) {
  constexpr std::size_t kMostNamed = 10;
  std::vector<std::string> named = TShortPaths::List(found);
  const std::size_t rest = named.size() - std::min(named.size(), kMostNamed);
  named.resize(named.size() - rest);
  return TCommandError(path + " is not unique: " + TText::Join(named, ", ") +
                       (rest == 0 ? "" : " and " + std::to_string(rest) + " more"));
}

}  // namespace

TElementFinder::TElementFinder(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {}

TCommandError TElementFinder::ClassError(const std::string& name,
                                         const TVYRException& error) const {
  if (error.GetStatusCode() == TVYRStatusCode::kNotFound) {
    return TCommandError("no class " + name + TSuggestion::For(name, ListClassNames(*namespace_)));
  }
  return TCommandError("class " + name + ": " + error.what());
}

/// Whoever mistook a path may have mistaken its keys.
std::string TElementFinder::KeysNote(const std::string& path) const {
  try {
    const auto cimClass = namespace_->GetClass(ClassPart(path), {});
    const std::set<std::string> keys = TInstanceReader::ListKeyNames(*cimClass);
    return " (" + cimClass->GetName({}) + " has " +
           KeysText(*cimClass, {keys.begin(), keys.end()}) + ")" + SuggestKey(path, keys);
  } catch (const TVYRException&) {
    return "";
  }
}

boost::shared_ptr<ICIMClass> TElementFinder::FindClass(const std::string& name) const {
  if (name.empty()) throw TCommandError("an empty text names no class");
  const TScopedSilence silence;
  try {
    return namespace_->GetClass(name, {});
  } catch (const TVYRException& error) {
    throw ClassError(name, error);
  }
}

boost::shared_ptr<ICIMClass> TElementFinder::FindAssociation(const std::string& name) const {
  auto cimClass = FindClass(name);
  if (!cimClass->IsAssociation({})) {
    throw TCommandError("class " + cimClass->GetName({}) + " is no association");
  }
  return cimClass;
}

TCIMReference TElementFinder::ParsePath(const std::string& path) const {
  const TScopedSilence silence;
  try {
    return TCIMReference::Parse(TText::RestorePath(path), namespace_);
  } catch (const std::invalid_argument& error) {
    throw TCommandError("object path " + path + ": " + error.what() + KeysNote(path));
  } catch (const TVYRException& error) {
    throw ClassError(ClassPart(path), error);
  }
}

boost::shared_ptr<ICIMInstance> TElementFinder::FindByFullPath(const std::string& path) const {
  const TCIMReference reference = ParsePath(path);
  auto instance = namespace_->GetInstance(reference, {});
  if (!instance) throw InstanceError(reference);
  return instance;
}

boost::shared_ptr<ICIMInstance> TElementFinder::FindByShortPath(const std::string& path) const {
  const TShortPathFinder finder(namespace_,
                                [this](const std::string& inner) { return ResolvePath(inner); });
  const TInstanceList found = finder.Find(TText::RestorePath(path));
  if (found.size() > 1) throw AmbiguityError(path, found);
  return found.empty() ? boost::shared_ptr<ICIMInstance>() : found.front();
}

/// Of a path that is none in either way, what is wrong with it as the one that it looks like.
TCommandError TElementFinder::ShortPathError(const std::string& path,
                                             const TCommandError& fullPathError) const {
  if (path.find('=') != std::string::npos) return fullPathError;
  const auto cimClass = TShortPathReader(namespace_).FindClass(path);
  if (!cimClass) {
    return TCommandError(std::string(fullPathError.what()) + " (nor has an instance such a key)");
  }
  if (path.find(':') == std::string::npos) return fullPathError;
  return TCommandError("no instance " + path +
                       TSuggestion::For(path, TShortPaths::List(ListInstances(*cimClass, true))));
}

/// A path may also lead where nothing is any more.
std::string TElementFinder::ResolvePath(const std::string& path) const {
  try {
    return FindInstance(path)->GetReference({}).GetPath();
  } catch (const TCommandError&) {
    return path;
  }
}

boost::shared_ptr<ICIMInstance> TElementFinder::FindInstance(const std::string& path) const {
  if (path.empty()) throw TCommandError("an empty text names no instance");
  try {
    return FindByFullPath(path);
  } catch (const TCommandError& error) {
    if (auto instance = FindByShortPath(path)) return instance;
    throw ShortPathError(path, error);
  }
}

}  // namespace NZELVYR20
