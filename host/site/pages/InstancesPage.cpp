#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "NaturalOrder.h"
#include "Pages.h"
#include "PropertyCell.h"
#include "TElementFinder.h"
#include "TInstanceNames.h"
#include "TInstanceQuery.h"
#include "TPage.h"
#include "TPaging.h"
#include "TPrinter.h"
#include "TPropertyChoice.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostNamed = 10000;  ///< more would take too long to read their names
constexpr std::size_t kCellWidth = 120;

void OrderByNames(TInstanceList& instances, TInstanceNames& names) {
  std::vector<std::pair<std::string, boost::shared_ptr<ICIMInstance>>> named;
  named.reserve(instances.size());
  for (const auto& instance : instances) named.emplace_back(names.NameOf(*instance), instance);
  std::stable_sort(named.begin(), named.end(), [](const auto& left, const auto& right) {
    return CompareNatural(left.first, right.first) < 0;
  });
  std::transform(named.begin(), named.end(), instances.begin(),
                 [](const auto& pair) { return pair.second; });
}

class TInstancesPage {
 public:
  explicit TInstancesPage(const TPageRequest& asked)
      : class_(TElementFinder(asked.nameSpace).FindClass(asked.className)),
        name_(class_->GetName({})),
        sort_(asked.request.Get("sort")),
        isOnly_(asked.request.Get("only") == "1"),
        instances_(List(asked)),
        paging_(instances_.size(), asked.request.Get("page")),
        shown_(instances_.begin() + static_cast<std::ptrdiff_t>(paging_.GetFirst()),
               instances_.begin() + static_cast<std::ptrdiff_t>(paging_.GetEnd())),
        choice_(TPropertyChoice::FindFilled(shown_)),
        page_(*asked.nameSpace, "Instances of " + name_),
        html_(page_.GetHtml()) {
    for (const auto& instance : shown_) {
      rows_.push_back(choice_.Read(*instance));
      classes_.insert(instance->GetClass({})->GetName({}));
    }
    FindAlike();
  }

  std::string Write() {
    AddCrumbs();
    AddLead();
    if (instances_.empty()) return page_.Finish();
    AddAlike();
    AddPages();
    AddTable();
    AddPages();
    return page_.Finish();
  }

 private:
  TInstanceList List(const TPageRequest& asked) {
    TInstanceQuery query;
    query.className = name_;
    query.isDeep = !isOnly_;
    query.sort = sort_;
    TInstanceList instances = query.List(asked.nameSpace);
    if (sort_.empty() && instances.size() <= kMostNamed) OrderByNames(instances, names_);
    return instances;
  }

  std::string Url(const std::string& sort, const std::string& page = {}) const {
    return InstancesUrl(name_, {{"sort", sort}, {"only", isOnly_ ? "1" : ""}, {"page", page}});
  }

  /// What is the same in every row stands above the table, once, and the class is told anyway.
  void FindAlike() {
    for (std::size_t column = 0; rows_.size() > 1 && column < choice_.GetNames().size(); ++column) {
      const auto first = rows_.front()[column];
      if (HaveAll(column, [&](const TCIMValue& value, ICIMInstance&) {
            return first && value == first->GetValue({});
          })) {
        alike_.insert(column);
      } else if (HaveAll(column, [](const TCIMValue& value, ICIMInstance& instance) {
                   return value == TCIMValue(instance.GetClass({})->GetName({}));
                 })) {
        told_.insert(column);
      }
    }
  }

  template <class TCheck>
  bool HaveAll(std::size_t column, const TCheck& check) const {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      const auto& property = rows_[row][column];
      if (!property || !check(property->GetValue({}), *shown_[row])) return false;
    }
    return true;
  }

  bool IsShown(std::size_t column) const {
    return alike_.count(column) == 0 && told_.count(column) == 0;
  }

  void AddCrumbs() {
    html_.Open("nav", {{"class", "crumbs"}, {"aria-label", "Class"}});
    html_.AddLink("/classes", "Classes");
    html_.Text(" / ");
    page_.AddClassLink(name_);
    html_.Text(" / Instances");
    html_.Close();
  }

  void AddLead() {
    html_.Open("p", {{"class", "lead"}});
    html_.Text(TText::Count(instances_.size(), "instance"));
    if (!paging_.IsWhole()) html_.Text(", here " + paging_.ToString());
    html_.Text(isOnly_ ? ", without those of subclasses. " : ", with those of subclasses. ");
    html_.AddLink(InstancesUrl(name_, {{"only", isOnly_ ? "" : "1"}}),
                  isOnly_ ? "With subclasses" : "Without subclasses");
    html_.Close();
  }

  void AddAlike() {
    if (alike_.empty()) return;
    html_.Open("details");
    html_.Add("summary", "Alike in all rows: " + std::to_string(alike_.size()) +
                             (alike_.size() == 1 ? " property" : " properties"));
    html_.Open("dl");
    for (const std::size_t column : alike_) {
      html_.Add("dt", choice_.GetNames()[column]);
      html_.Open("dd");
      AddPropertyValue(html_, *rows_.front()[column], names_, kCellWidth);
      html_.Close();
    }
    html_.Close();
    html_.Close();
  }

  void AddPages() {
    paging_.AddLinks(html_, [this](std::size_t page) { return Url(sort_, std::to_string(page)); });
  }

  void AddTable() {
    THtml::TAttributes attributes{{"class", "grid"}};
    if (paging_.IsWhole()) attributes.emplace_back("data-whole", "yes");
    page_.OpenTable(name_ + (paging_.IsWhole() ? "" : ", " + paging_.ToString()), attributes);
    AddHead();
    html_.Open("tbody");
    for (std::size_t row = 0; row < shown_.size(); ++row) AddRow(row);
    page_.CloseTable();
  }

  void AddHead() {
    html_.Open("thead");
    html_.Open("tr");
    AddColumn("Instance", "", sort_.empty() ? "ascending" : "none");
    if (classes_.size() > 1) html_.Add("th", "Class", {{"scope", "col"}});
    for (std::size_t i = 0; i < choice_.GetNames().size(); ++i) {
      if (!IsShown(i)) continue;
      const std::string& name = choice_.GetNames()[i];
      const std::string order = OrderBy(name);
      AddColumn(name, order == "ascending" ? '-' + name : name, order);
    }
    html_.Close();
    html_.Close();
  }

  std::string OrderBy(const std::string& property) const {
    if (CompareFolded(sort_, property) == 0) return "ascending";
    return CompareFolded(sort_, '-' + property) == 0 ? "descending" : "none";
  }

  void AddColumn(const std::string& name, const std::string& sort, const std::string& order) {
    html_.Open("th", {{"scope", "col"}, {"aria-sort", order}});
    html_.AddLink(Url(sort), name);
    html_.Close();
  }

  void AddRow(std::size_t row) {
    ICIMInstance& instance = *shown_[row];
    html_.Open("tr");
    html_.Open("th", {{"scope", "row"}});
    html_.AddLink(InstanceUrl(instance), CutName(names_.NameOf(instance), kCellWidth));
    html_.Close();
    if (classes_.size() > 1) {
      html_.Open("td");
      page_.AddClassLink(instance.GetClass({})->GetName({}));
      html_.Close();
    }
    for (std::size_t i = 0; i < rows_[row].size(); ++i) {
      if (IsShown(i)) AddCell(rows_[row][i]);
    }
    html_.Close();
  }

  void AddCell(const boost::shared_ptr<ICIMProperty>& property) {
    if (!property || property->GetValue({}).IsNull()) {
      html_.Add("td", "");
      return;
    }
    const std::string stored = TPrinter::StoredText(property->GetValue({}));
    const bool isNumber = IsNumber(property->GetType({}));
    THtml::TAttributes attributes;
    if (isNumber) attributes = {{"class", "number"}, {"data-value", stored}};
    html_.Open("td", attributes);
    AddPropertyValue(html_, *property, names_, kCellWidth);
    html_.Close();
  }

  static bool IsNumber(TCIMValue::TCIMType type) {
    switch (type) {
      case TCIMValue::TCIMType::kBoolean:
      case TCIMValue::TCIMType::kString:
      case TCIMValue::TCIMType::kDateTime:
      case TCIMValue::TCIMType::kReference:
      case TCIMValue::TCIMType::kChar16:
        return false;
      default:
        return !type.IsArray();
    }
  }

  TInstanceNames names_;
  boost::shared_ptr<ICIMClass> class_;
  std::string name_;
  std::string sort_;
  bool isOnly_;
  TInstanceList instances_;
  TPaging paging_;
  TInstanceList shown_;
  TPropertyChoice choice_;
  TPage page_;
  THtml& html_;
  std::vector<std::vector<boost::shared_ptr<ICIMProperty>>> rows_;
  std::set<std::string> classes_;
  std::set<std::size_t> alike_;  ///< numbers of columns
  std::set<std::size_t> told_;
};

}  // namespace

std::string InstancesPage(const TPageRequest& asked) { return TInstancesPage(asked).Write(); }

}  // namespace NZELVYR20
