#include "Outline.h"

#include <boost/algorithm/string/join.hpp>
#include <vector>

namespace NZELVYR20 {

std::string Outline(const pugi::xml_node& node) {
  if (node.type() != pugi::node_element) return '\'' + std::string(node.value()) + '\'';
  if (const pugi::xml_node host = node.child("HOST")) {
    return "//" + std::string(host.child_value()) + '/' + Outline(host.next_sibling());
  }
  if (!node.child("NAMESPACE").empty()) {
    std::vector<std::string> names;
    for (const pugi::xml_node& name : node) names.emplace_back(name.attribute("NAME").value());
    return boost::join(names, "/");
  }
  std::string text = node.name();
  for (const char* name : {"NAME", "CLASSNAME", "CLASSORIGIN", "CODE"}) {
    if (const pugi::xml_attribute found = node.attribute(name)) {
      text += std::string(name == std::string("CLASSORIGIN") ? "@" : " ") + found.value();
    }
  }
  std::vector<std::string> parts;
  for (const pugi::xml_node& child : node.children()) parts.push_back(Outline(child));
  return parts.empty() ? text : text + " [" + boost::join(parts, ", ") + ']';
}

std::string Lines(const pugi::xml_node& response) {
  const pugi::xml_node returned = response.child("IRETURNVALUE");
  if (!returned) return Outline(response.first_child());
  std::vector<std::string> lines;
  for (const pugi::xml_node& child : returned.children()) lines.push_back(Outline(child));
  return lines.empty() ? "nothing" : boost::join(lines, "\n");
}

}  // namespace NZELVYR20
