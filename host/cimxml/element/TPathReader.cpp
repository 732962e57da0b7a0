#include "TPathReader.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "ScalarText.h"
#include "TCimFailure.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// Each reference within a reference doubles the escapes, which bounds how deeply they nest.
constexpr std::size_t kLongestPath = std::size_t{64} * 1024;

[[noreturn]] void Refuse(const std::string& what) {
  throw TCimFailure(ECimStatus::kInvalidParameter, what);
}

std::string Attribute(const pugi::xml_node& node, const char* name) {
  return node.attribute(name).value();
}

bool IsElement(const pugi::xml_node& node) { return node.type() == pugi::node_element; }

std::vector<pugi::xml_node> Elements(const pugi::xml_node& node) {
  std::vector<pugi::xml_node> elements;
  std::copy_if(node.begin(), node.end(), std::back_inserter(elements), IsElement);
  return elements;
}

/// The last element in a path: what comes before tells where it is.
pugi::xml_node LastElement(const pugi::xml_node& node) {
  const std::vector<pugi::xml_node> elements = Elements(node);
  if (elements.empty()) Refuse(std::string(node.name()) + " is empty");
  return elements.back();
}

bool IsOneOf(const pugi::xml_node& node, std::initializer_list<const char*> names) {
  return std::any_of(names.begin(), names.end(),
                     [&](const char* name) { return std::strcmp(node.name(), name) == 0; });
}

/// A name within the text of a path.
const std::string& CheckName(const std::string& name) {
  constexpr const char* kCharacters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789";
  if (name.empty() || name.find_first_not_of(kCharacters) != std::string::npos) {
    Refuse('"' + name + "\" is no name");
  }
  return name;
}

std::string Quote(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

/// A number or truth value as it stands in the text of a path.
std::string BareKeyText(const std::string& text) {
  std::string bare = BareText(text);
  if (bare.empty()) Refuse('"' + text + "\" is no value of the key's type");
  return bare;
}

bool StandsInQuotes(TType type) {
  return type == TType::kString || type == TType::kDateTime || type == TType::kChar16 ||
         type == TType::kReference;
}

}  // namespace

std::string ReadText(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node& part : node) {
    if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) text += part.value();
  }
  return text;
}

TPathReader::TPathReader(boost::shared_ptr<ICIMNamespace> nameSpace, TIsName isName)
    : namespace_(std::move(nameSpace)), isName_(std::move(isName)) {}

boost::shared_ptr<ICIMClass> TPathReader::ReadClass(const pugi::xml_node& node) const {
  if (IsOneOf(node, {"LOCALCLASSPATH", "CLASSPATH"})) {
    CheckNamespace(node);
    return ReadClass(LastElement(node));
  }
  if (!IsOneOf(node, {"CLASSNAME"})) Refuse(std::string(node.name()) + " names no class");
  return FindClass(Attribute(node, "NAME"));
}

TCIMReference TPathReader::ReadInstance(const pugi::xml_node& node) const {
  const std::string text = PathText(node);
  try {
    return TCIMReference::Parse(text, namespace_);
  } catch (const std::invalid_argument& failure) {
    Refuse(text + ": " + failure.what());
  }
}

TObjectName TPathReader::ReadObject(const pugi::xml_node& node) const {
  if (IsOneOf(node, {"CLASSNAME", "LOCALCLASSPATH", "CLASSPATH"})) return {ReadClass(node), {}};
  const TCIMReference path = ReadInstance(node);
  return {path.GetClass(), path};
}

std::string TPathReader::PathText(const pugi::xml_node& node) const {
  if (IsOneOf(node, {"INSTANCENAME"})) return InstanceNameText(node);
  const bool isPath = IsOneOf(node, {"INSTANCEPATH", "LOCALINSTANCEPATH"});
  if (!isPath && !IsOneOf(node, {"VALUE.REFERENCE"})) {
    Refuse(std::string(node.name()) + " names no instance");
  }
  if (isPath) CheckNamespace(node);
  return PathText(LastElement(node));
}

/// The text leaves to one reader what a path's keys must be.
std::string TPathReader::InstanceNameText(const pugi::xml_node& name) const {
  const boost::shared_ptr<ICIMClass> cimClass = FindClass(Attribute(name, "CLASSNAME"));
  const std::vector<std::string> keys = ListKeyNames(*cimClass);
  const std::vector<pugi::xml_node> bindings = Elements(name);
  if (bindings.size() != keys.size()) {
    Refuse("a path of " + cimClass->GetName({}) + " has " + std::to_string(keys.size()) +
           " keys, not " + std::to_string(bindings.size()));
  }
  std::string path = cimClass->GetName({});
  char separator = '.';
  for (const pugi::xml_node& binding : bindings) {
    const bool isNamed = IsOneOf(binding, {"KEYBINDING"});
    if (!isNamed && keys.size() != 1) Refuse("KEYBINDING is missing");
    path += separator + KeyText(*cimClass, isNamed ? Attribute(binding, "NAME") : keys.front(),
                                isNamed ? LastElement(binding) : binding);
    if (path.size() > kLongestPath) Refuse("a path is too long");
    separator = ',';
  }
  return path;
}

std::string TPathReader::KeyText(const ICIMClass& cimClass, const std::string& name,
                                 const pugi::xml_node& value) const {
  const TType type = FindKeyType(cimClass, CheckName(name));
  const std::string start = name + '=';
  if (type == TType::kReference) return start + Quote(PathText(value));
  if (!IsOneOf(value, {"KEYVALUE"})) Refuse("key " + name + " is no reference");
  const std::string text = ReadText(value);
  return start + (StandsInQuotes(type) ? Quote(text) : BareKeyText(text));
}

TType TPathReader::FindKeyType(const ICIMClass& cimClass, const std::string& name) {
  try {
    return cimClass.GetPropertyDecl(name, {})->GetType({});
  } catch (const TVYRException&) {
    Refuse("class " + cimClass.GetName({}) + " has no key " + name);
  }
}

void TPathReader::CheckNamespace(const pugi::xml_node& path) const {
  const pugi::xml_node first = path.first_child();
  const bool hasHost = IsOneOf(first, {"NAMESPACEPATH"});
  std::string name;
  for (const pugi::xml_node& part : hasHost ? first.child("LOCALNAMESPACEPATH") : first) {
    if (!name.empty()) name += '/';
    name += Attribute(part, "NAME");
  }
  if (!isName_(name)) throw TCimFailure(ECimStatus::kNotFound, "nothing is found in " + name);
}

boost::shared_ptr<ICIMClass> TPathReader::FindClass(const std::string& name) const {
  try {
    if (!name.empty() && name != "<root>") return namespace_->GetClass(name, {});
  } catch (const TVYRException& failure) {
    const int status = failure.GetStatusCode();
    if (status != TVYRStatusCode::kNotFound && status != TVYRStatusCode::kInvalidName) throw;
  }
  throw TCimFailure(ECimStatus::kInvalidClass, "there is no class \"" + name + '"');
}

}  // namespace NZELVYR20
