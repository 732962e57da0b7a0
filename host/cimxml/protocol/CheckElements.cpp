#include "CheckElements.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "IsXmlCharacter.h"
#include "TRefusal.h"

namespace NZELVYR20 {
namespace {

/// An element, its attributes ("!": required) and its children in their order: names of which one
/// stands there, once or as often as the mark after them says. "#" is text.
struct TElementRule {
  std::string_view name;
  std::string_view attributes;
  std::string_view children;
};

// What only a write holds is here as well: its answer is a status of CIM, as for any operation that
// is not offered.
constexpr TElementRule kRules[] = {
    {"CIM", "CIMVERSION! DTDVERSION!", "MESSAGE"},
    {"MESSAGE", "ID! PROTOCOLVERSION!", "SIMPLEREQ"},
    {"SIMPLEREQ", "", "IMETHODCALL|METHODCALL"},
    {"IMETHODCALL", "NAME!", "LOCALNAMESPACEPATH IPARAMVALUE*"},
    {"METHODCALL", "NAME!", "LOCALINSTANCEPATH|LOCALCLASSPATH PARAMVALUE*"},
    {"IPARAMVALUE", "NAME!",
     "VALUE|VALUE.ARRAY|VALUE.REFERENCE|CLASSNAME|INSTANCENAME|QUALIFIER.DECLARATION|CLASS|"
     "INSTANCE|"
     "VALUE.NAMEDINSTANCE?"},
    {"PARAMVALUE", "NAME! PARAMTYPE EmbeddedObject EMBEDDEDOBJECT",
     "VALUE|VALUE.ARRAY|VALUE.REFERENCE|VALUE.REFARRAY|CLASSNAME|INSTANCENAME|CLASS|INSTANCE|"
     "VALUE.NAMEDINSTANCE?"},
    {"LOCALNAMESPACEPATH", "", "NAMESPACE+"},
    {"NAMESPACEPATH", "", "HOST LOCALNAMESPACEPATH"},
    {"NAMESPACE", "NAME!", ""},
    {"HOST", "", "#"},
    {"CLASSNAME", "NAME!", ""},
    {"INSTANCENAME", "CLASSNAME!", "KEYBINDING* KEYVALUE|VALUE.REFERENCE?"},
    {"KEYBINDING", "NAME!", "KEYVALUE|VALUE.REFERENCE"},
    {"KEYVALUE", "VALUETYPE TYPE", "#"},
    {"CLASSPATH", "", "NAMESPACEPATH CLASSNAME"},
    {"LOCALCLASSPATH", "", "LOCALNAMESPACEPATH CLASSNAME"},
    {"INSTANCEPATH", "", "NAMESPACEPATH INSTANCENAME"},
    {"LOCALINSTANCEPATH", "", "LOCALNAMESPACEPATH INSTANCENAME"},
    {"VALUE", "", "#"},
    {"VALUE.NULL", "", ""},
    {"VALUE.ARRAY", "", "VALUE|VALUE.NULL*"},
    {"VALUE.REFERENCE", "",
     "CLASSPATH|LOCALCLASSPATH|CLASSNAME|INSTANCEPATH|LOCALINSTANCEPATH|INSTANCENAME"},
    {"VALUE.REFARRAY", "", "VALUE.REFERENCE|VALUE.NULL*"},
    {"VALUE.NAMEDINSTANCE", "", "INSTANCENAME INSTANCE"},
    {"INSTANCE", "CLASSNAME! xml:lang", "QUALIFIER* PROPERTY|PROPERTY.ARRAY|PROPERTY.REFERENCE*"},
    {"CLASS", "NAME! SUPERCLASS", "QUALIFIER* PROPERTY|PROPERTY.ARRAY|PROPERTY.REFERENCE* METHOD*"},
    {"PROPERTY", "NAME! TYPE! CLASSORIGIN PROPAGATED EmbeddedObject EMBEDDEDOBJECT xml:lang",
     "QUALIFIER* VALUE?"},
    {"PROPERTY.ARRAY",
     "NAME! TYPE! ARRAYSIZE CLASSORIGIN PROPAGATED EmbeddedObject EMBEDDEDOBJECT xml:lang",
     "QUALIFIER* VALUE.ARRAY?"},
    {"PROPERTY.REFERENCE", "NAME! REFERENCECLASS CLASSORIGIN PROPAGATED",
     "QUALIFIER* VALUE.REFERENCE?"},
    {"METHOD", "NAME! TYPE CLASSORIGIN PROPAGATED",
     "QUALIFIER* PARAMETER|PARAMETER.ARRAY|PARAMETER.REFERENCE|PARAMETER.REFARRAY*"},
    {"PARAMETER", "NAME! TYPE!", "QUALIFIER*"},
    {"PARAMETER.ARRAY", "NAME! TYPE! ARRAYSIZE", "QUALIFIER*"},
    {"PARAMETER.REFERENCE", "NAME! REFERENCECLASS", "QUALIFIER*"},
    {"PARAMETER.REFARRAY", "NAME! REFERENCECLASS ARRAYSIZE", "QUALIFIER*"},
    {"QUALIFIER", "NAME! TYPE! PROPAGATED OVERRIDABLE TOSUBCLASS TOINSTANCE TRANSLATABLE xml:lang",
     "VALUE|VALUE.ARRAY?"},
    {"QUALIFIER.DECLARATION",
     "NAME! TYPE! ISARRAY ARRAYSIZE OVERRIDABLE TOSUBCLASS TOINSTANCE TRANSLATABLE",
     "SCOPE? VALUE|VALUE.ARRAY?"},
    {"SCOPE", "CLASS ASSOCIATION REFERENCE PROPERTY METHOD PARAMETER INDICATION", ""},
};

[[noreturn]] void RefuseElement(const pugi::xml_node& element, const std::string& why) {
  throw TRefusal(400, "request-not-valid", std::string(element.name()) + ": " + why);
}

/// Takes what stands before the separator off the list.
std::string_view TakeWord(std::string_view& list, char separator) {
  const std::size_t size = std::min(list.find(separator), list.size());
  const std::string_view word = list.substr(0, size);
  list.remove_prefix(std::min(size + 1, list.size()));
  return word;
}

bool HasWord(std::string_view list, std::string_view name, char separator) {
  while (!list.empty()) {
    if (TakeWord(list, separator) == name) return true;
  }
  return false;
}

void CheckAttributes(const pugi::xml_node& element, std::string_view rule) {
  std::size_t known = 0;
  while (!rule.empty()) {
    std::string name(TakeWord(rule, ' '));
    const bool isRequired = name.back() == '!';
    if (isRequired) name.pop_back();
    const pugi::xml_attribute found = element.attribute(name.c_str());
    if (found) ++known;
    if (isRequired && !found) RefuseElement(element, "no attribute " + name);
  }
  const auto attributes = element.attributes();
  if (static_cast<std::size_t>(std::distance(attributes.begin(), attributes.end())) != known) {
    RefuseElement(element, "an attribute that is unknown or there twice");
  }
}

bool IsText(const pugi::xml_node& node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// The next child that is no blank between elements.
pugi::xml_node SkipBlanks(pugi::xml_node child) {
  while (child.type() == pugi::node_pcdata &&
         std::string_view(child.value()).find_first_not_of(kXmlBlanks) == std::string_view::npos) {
    child = child.next_sibling();
  }
  return child;
}

void CheckChildren(const pugi::xml_node& element, std::string_view rule) {
  pugi::xml_node child = SkipBlanks(element.first_child());
  while (!rule.empty()) {
    std::string_view group = TakeWord(rule, ' ');
    const char mark = group.back();
    const bool isMarked = std::string_view("?*+").find(mark) != std::string_view::npos;
    if (isMarked) group.remove_suffix(1);
    std::size_t count = 0;
    while (child && HasWord(group, child.name(), '|')) {
      CheckElements(child);
      child = SkipBlanks(child.next_sibling());
      ++count;
      if (!isMarked || mark == '?') break;
    }
    if (count == 0 && (!isMarked || mark == '+')) {
      RefuseElement(element, "no " + std::string(group));
    }
  }
  if (child) RefuseElement(element, "holds what does not belong there");
}

}  // namespace

void CheckElements(const pugi::xml_node& element) {
  const auto* const rule =
      std::find_if(std::begin(kRules), std::end(kRules),
                   [&](const TElementRule& known) { return known.name == element.name(); });
  if (rule == std::end(kRules)) RefuseElement(element, "unknown");
  CheckAttributes(element, rule->attributes);
  if (rule->children != "#") return CheckChildren(element, rule->children);
  for (const pugi::xml_node& child : element.children()) {
    if (!IsText(child)) RefuseElement(element, "holds more than text");
  }
}

}  // namespace NZELVYR20
