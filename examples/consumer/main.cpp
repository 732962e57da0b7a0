// A consumer: draws the tree of the classes and, along an association from the parts that stand in
// no other, the tree of these, with values as people read them.
#include <ListAssociators.h>
#include <ListElements.h>
#include <ReadValue.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <set>
#include <string>

#include "Disks.h"

namespace vyr = NZELVYR20;

namespace {

using TInstancePtr = boost::shared_ptr<vyr::ICIMInstance>;

/// A line for the node, and below it what `list` gives for it.
template <class TNode, class TText, class TList>
void Draw(const TNode& node, const TText& getText, const TList& list,
          const std::string& indent = {}) {
  std::cout << getText(*node) << '\n';
  const auto below = list(node);
  for (const auto& child : below) {
    const bool isLast = &child == &below.back();
    std::cout << indent << (isLast ? "└── " : "├── ");
    Draw(child, getText, list, indent + (isLast ? "    " : "│   "));
  }
}

void DrawClasses(vyr::ICIMNamespace& nameSpace) {
  Draw(
      nameSpace.GetClass("", {}), [](vyr::ICIMClass& one) { return one.GetName({}); },
      [](const auto& one) { return vyr::ListSubClasses(*one, /*deep=*/false); });
}

/// Units and value maps are applied; ReadValue would give what was stored.
std::string GetLine(vyr::ICIMInstance& part) {
  std::string line = part.GetReference({}).ToString();
  for (const char* name : {"Capacity", "State"}) {
    const std::string text = vyr::ReadText(part, name);
    if (!text.empty()) line += ", " + text;
  }
  return line;
}

void DrawParts(vyr::ICIMNamespace& nameSpace) {
  // What stands in several is drawn in the first of them; so a ring has an end, too.
  std::set<TInstancePtr> drawn;
  const auto list = [&drawn](const TInstancePtr& box) {
    auto parts = vyr::ListAssociators(box, {"Demo_PartInBox", "", "Box", "Part"});
    const auto isDrawn = [&drawn](const auto& part) { return !drawn.insert(part).second; };
    parts.erase(std::remove_if(parts.begin(), parts.end(), isDrawn), parts.end());
    return parts;
  };
  for (const auto& part : vyr::ListInstances(*nameSpace.GetClass("Demo_Part", {}), true)) {
    const bool isTop = vyr::ListReferences(part, "Demo_PartInBox", "Part").empty();
    if (isTop) Draw(part, GetLine, list);
  }
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "Usage: consumer FILE\n";
    return 2;
  }
  const auto nameSpace = examples::CollectDisks(argv[1]);
  DrawClasses(*nameSpace);
  DrawParts(*nameSpace);
  return 0;
} catch (const std::exception& error) {
  std::cerr << "consumer: " << error.what() << '\n';
  return 1;
}
