#include "TInstanceNames.h"

#include <vector>

#include "ListAssociators.h"
#include "TText.h"

namespace NZELVYR20 {

std::string TInstanceNames::NameOf(ICIMInstance& instance) {
  if (instance.GetClass({})->IsAssociation({})) {
    std::vector<std::string> names;
    for (const TAssociationEnd& end : ListEnds(instance)) {
      names.push_back(labels_.Read(*end.instance).name);
    }
    if (names.size() > 1) return TText::Join(names, " \u2013 ");
  }
  const std::string name = labels_.Read(instance).name;
  return name.empty() ? instance.GetClass({})->GetName({}) : name;
}

std::string TInstanceNames::FullNameOf(ICIMInstance& instance) {
  const std::string title = TitleOf(instance);
  return NameOf(instance) + (title.empty() ? "" : " (" + title + ")");
}

std::string CutName(const std::string& name, std::size_t width) {
  return TText::Cut(name, width, "\u2026");
}

}  // namespace NZELVYR20
