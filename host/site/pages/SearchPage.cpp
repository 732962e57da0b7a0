#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListClasses.h"
#include "Pages.h"
#include "QualifierText.h"
#include "TCommandError.h"
#include "TElementFinder.h"
#include "TInstanceNames.h"
#include "TInstanceReader.h"
#include "TPage.h"
#include "TPrinter.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostFound = 50;     ///< of a kind
constexpr std::size_t kMostRead = 100000;  ///< instances

struct TFound {
  std::string url;
  std::string name;
  std::string note;
};

/// What was found of a kind, as much of it as is shown.
struct THits {
  std::vector<TFound> found;
  bool isCut = false;

  void Add(const TFound& one) {
    isCut = found.size() == kMostFound;
    if (!isCut) found.push_back(one);
  }
};

class TSearch {
 public:
  TSearch(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& text)
      : text_(FoldName(text)), classes_(ListAllClasses(*nameSpace)) {
    FindPath(nameSpace, text);
    FindClasses();
    FindInstances();
  }

  const THits& GetClasses() const { return inClasses_; }
  const THits& GetProperties() const { return inProperties_; }
  const THits& GetInstances() const { return inInstances_; }
  /// Whether there are too many instances to look through all.
  bool IsPartial() const { return isPartial_; }

 private:
  bool Matches(const std::string& text) const {
    return FoldName(text).find(text_) != std::string::npos;
  }

  /// Whoever has the path of an instance need not know where to put it.
  void FindPath(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& text) {
    if (text.find_first_of(".:") == std::string::npos) return;
    try {
      byPath_ = TElementFinder(nameSpace).FindInstance(text);
      AddInstance(*byPath_, "by its path");
    } catch (const TCommandError&) {
      return;
    }
  }

  void FindClasses() {
    for (const auto& cimClass : classes_) {
      const std::string name = cimClass->GetName({});
      if (Matches(name)) inClasses_.Add({ClassUrl(name), name, ShortDescription(*cimClass)});
      for (const auto& property : ListPropertyDecls(*cimClass)) {
        if (property->GetClass({}) == cimClass && Matches(property->GetName({}))) {
          inProperties_.Add({ClassUrl(name) + "#of-" + property->GetName({}),
                             name + '.' + property->GetName({}), ShortDescription(*property)});
        }
      }
    }
  }

  void FindInstances() {
    std::size_t read = 0;
    for (const auto& cimClass : classes_) {
      if (cimClass->IsAssociation({})) continue;
      for (const auto& instance : ListInstances(*cimClass, false)) {
        isPartial_ = ++read > kMostRead;
        if (isPartial_ || inInstances_.isCut) return;
        if (instance == byPath_) continue;
        if (const auto note = FindValue(*instance)) AddInstance(*instance, *note);
      }
    }
  }

  void AddInstance(ICIMInstance& instance, const std::string& note) {
    inInstances_.Add({InstanceUrl(instance), names_.FullNameOf(instance),
                      instance.GetClass({})->GetName({}) + ", " + note});
  }

  /// The first property with a value that matches. Names of classes and systems are in nearly every
  /// instance, so that they tell nothing.
  std::optional<std::string> FindValue(ICIMInstance& instance) const {
    for (const auto& property : ListProperties(instance)) {
      const TCIMValue& value = property->GetValue({});
      if (value.IsNull() || value.IsReference()) continue;
      const std::string name = TInstanceReader::NameOf(*property);
      if (name.find("CreationClassName") != std::string::npos || name == "SystemName") continue;
      const std::string text = TPrinter::PropertyText(*property);
      if (Matches(text)) return name + ": " + CutName(text, kTextWidth);
    }
    return std::nullopt;
  }

  std::string text_;
  TClassList classes_;
  TInstanceNames names_;
  boost::shared_ptr<ICIMInstance> byPath_;
  THits inClasses_;
  THits inProperties_;
  THits inInstances_;
  bool isPartial_ = false;
};

void AddHits(TPage& page, const std::string& id, const std::string& kind, const THits& hits) {
  THtml& html = page.GetHtml();
  page.OpenSection(
      id, kind + " (" + std::to_string(hits.found.size()) + (hits.isCut ? " and more)" : ")"));
  html.Open("ul", {{"class", "hits"}});
  for (const TFound& found : hits.found) {
    html.Open("li");
    html.AddLink(found.url, CutName(found.name, kTextWidth));
    html.Text(" ");
    html.Add("span", found.note, {{"class", "note"}});
    html.Close();
  }
  html.Close();
  if (hits.isCut) html.Add("p", "There may be more: ask for something longer.");
  html.Close();
}

}  // namespace

std::string SearchPage(const TPageRequest& asked) {
  const std::string text = asked.request.Get("q");
  TPage page(*asked.nameSpace, text.empty() ? "Search" : "Search for " + CutName(text, kTextWidth),
             text);
  THtml& html = page.GetHtml();
  if (text.empty()) {
    html.Add("p", "Ask above for a part of a class's or a property's name, or of a value.");
    return page.Finish();
  }
  const TSearch search(asked.nameSpace, text);
  const bool isFound = !search.GetClasses().found.empty() ||
                       !search.GetProperties().found.empty() ||
                       !search.GetInstances().found.empty();
  if (!isFound) html.Add("p", "Nothing has this text in its name or its values.");
  if (search.IsPartial()) {
    html.Add("p", "Of the instances only the first " + std::to_string(kMostRead) +
                      " were looked through.");
  }
  for (const auto& [id, kind, hits] :
       {std::tuple("instances", "Instances", &search.GetInstances()),
        std::tuple("classes", "Classes", &search.GetClasses()),
        std::tuple("properties", "Properties", &search.GetProperties())}) {
    if (!hits->found.empty()) AddHits(page, id, kind, *hits);
  }
  return page.Finish();
}

}  // namespace NZELVYR20
