#include <algorithm>
#include <string>
#include <vector>

#include "DrawNeighbours.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "ListNeighbours.h"
#include "Pages.h"
#include "PropertyCell.h"
#include "QualifierText.h"
#include "TInstanceReader.h"
#include "TPage.h"
#include "TPrinter.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostListed = 10;  ///< of a group
constexpr std::size_t kTitleWidth = 100;

class TInstancePage {
 public:
  TInstancePage(ICIMNamespace& nameSpace, boost::shared_ptr<ICIMInstance> instance)
      : instance_(std::move(instance)),
        className_(instance_->GetClass({})->GetName({})),
        path_(TPrinter::PathText(*instance_)),
        name_(names_.NameOf(*instance_)),
        page_(nameSpace, CutName(name_, kTitleWidth)),
        html_(page_.GetHtml()) {}

  std::string Write() {
    AddCrumbs();
    html_.Open("p", {{"class", "lead"}});
    const std::string title = names_.TitleOf(*instance_);
    html_.Text(title.empty() ? "An instance of " : title + ", an instance of ");
    page_.AddClassLink(className_);
    html_.Close();
    html_.Open("p", {{"class", "path"}});
    html_.Add("code", path_);
    html_.Close();
    AddProperties();
    AddNeighbours();
    return page_.Finish();
  }

 private:
  void AddCrumbs() {
    html_.Open("nav", {{"class", "crumbs"}, {"aria-label", "Class"}});
    html_.AddLink("/classes", "Classes");
    html_.Text(" / ");
    page_.AddClassLink(className_);
    html_.Text(" / ");
    html_.AddLink(InstancesUrl(className_), "Instances");
    html_.Close();
  }

  /// Those without a value only by their names.
  void AddProperties() {
    const auto properties = ListProperties(*instance_);
    hasPrevious_ = std::any_of(properties.begin(), properties.end(), [](const auto& property) {
      return property->IsPrevValueDifferent();
    });
    const auto keys = TInstanceReader::ListKeyNames(*instance_->GetClass({}));
    std::vector<std::string> empty;
    page_.OpenSection("properties", "Properties");
    page_.OpenTable("Properties that have a value", {{"data-whole", "yes"}});
    std::vector<std::string> columns{"Property", "Value"};
    if (hasPrevious_) columns.emplace_back("Before");
    columns.insert(columns.end(), {"As stored", "Units", "Type", "Declared in"});
    page_.AddHead(columns);
    for (const auto& property : properties) {
      const std::string name = TInstanceReader::NameOf(*property);
      if (property->GetValue({}).IsNull() && !property->IsPrevValueDifferent()) {
        empty.push_back(name);
      } else {
        AddProperty(*property, keys.count(name) > 0);
      }
    }
    page_.CloseTable();
    AddEmpty(empty);
    html_.Close();
  }

  void AddEmpty(const std::vector<std::string>& names) {
    if (names.empty()) return;
    html_.Open("details");
    html_.Add("summary", std::to_string(names.size()) + " without a value");
    html_.Add("p", TText::Join(names, ", "));
    html_.Close();
  }

  void AddProperty(const ICIMProperty& property, bool isKey) {
    const auto declaration = property.GetDeclaration({});
    const std::string text = TPrinter::PropertyText(property);
    const std::string stored = TPrinter::StoredText(property.GetValue({}));
    html_.Open("tr");
    html_.Open("th", {{"scope", "row"}});
    const std::string about = ShortDescription(*declaration);
    html_.AddLink(ClassUrl(className_) + "#of-" + TInstanceReader::NameOf(property),
                  TInstanceReader::NameOf(property),
                  about.empty() ? THtml::TAttributes{} : THtml::TAttributes{{"title", about}});
    if (isKey) page_.AddMark("key");
    html_.Close();
    html_.Open("td");
    AddPropertyValue(html_, property, names_, 0);
    html_.Close();
    if (hasPrevious_) {
      html_.Add("td", property.IsPrevValueDifferent() ? property.PrevValueToString() : "");
    }
    html_.Add("td", stored == text ? "" : stored, {{"class", "stored"}});
    const std::string units = QualifierText(*declaration, "Units");
    html_.Add("td", units.empty() ? QualifierText(*declaration, "PUnit") : units);
    html_.Add("td", TypeText(property.GetType({})));
    html_.Open("td");
    if (const auto origin = declaration->GetClass({})) page_.AddClassLink(origin->GetName({}));
    html_.Close();
    html_.Close();
  }

  std::string GroupUrl(const TNeighbourGroup& group) const {
    return MakeUrl("/neighbours",
                   {{"path", path_}, {"association", group.association}, {"role", group.role}});
  }

  void AddNeighbours() {
    const auto groups = ListNeighbours(instance_, names_);
    page_.OpenSection("around", "What is associated with it");
    if (groups.empty()) {
      html_.Add("p", "Nothing.");
    } else {
      html_.Open("div", {{"class", "picture wide"},
                         {"role", "region"},
                         {"tabindex", "0"},
                         {"aria-label", "Picture of the associations"}});
      DrawNeighbours(html_, {name_, className_}, groups,
                     [this](const TNeighbourGroup& group) { return GroupUrl(group); });
      html_.Close();
      html_.Open("div", {{"class", "groups"}});
      for (const TNeighbourGroup& group : groups) AddGroup(group);
      html_.Close();
    }
    html_.Close();
  }

  void AddGroup(const TNeighbourGroup& group) {
    const std::size_t count = group.members.size();
    html_.Open("div");
    html_.Open("h3");
    html_.Text(group.role + " by ");
    page_.AddClassLink(group.association);
    html_.Close();
    html_.Open("ul");
    for (std::size_t i = 0; i < std::min(count, kMostListed); ++i) AddMember(group.members[i]);
    html_.Close();
    if (count > kMostListed) {
      html_.Open("p");
      html_.AddLink(GroupUrl(group), "All " + std::to_string(count));
      html_.Close();
    }
    html_.Close();
  }

  void AddMember(const TNeighbour& member) {
    html_.Open("li");
    html_.AddLink(InstanceUrl(*member.instance),
                  CutName(names_.FullNameOf(*member.instance), kTitleWidth));
    html_.Text(" ");
    html_.Add("span", member.instance->GetClass({})->GetName({}), {{"class", "note"}});
    html_.Close();
  }

  TInstanceNames names_;
  boost::shared_ptr<ICIMInstance> instance_;
  std::string className_;
  std::string path_;
  std::string name_;
  TPage page_;
  THtml& html_;
  bool hasPrevious_ = false;
};

}  // namespace

std::string InstancePage(const TPageRequest& asked) {
  return TInstancePage(*asked.nameSpace, asked.FindInstance()).Write();
}

}  // namespace NZELVYR20
