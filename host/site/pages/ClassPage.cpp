#include <set>
#include <string>
#include <vector>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "Pages.h"
#include "QualifierText.h"
#include "TElementFinder.h"
#include "TInstanceReader.h"
#include "TPage.h"
#include "TPrinter.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

class TClassPage {
 public:
  TClassPage(ICIMNamespace& nameSpace, ICIMClass& cimClass)
      : class_(cimClass),
        name_(cimClass.GetName({})),
        page_(nameSpace, name_),
        html_(page_.GetHtml()) {}

  std::string Write() {
    AddSuperClasses();
    html_.Open("div", {{"class", "lead"}});
    page_.AddMarks(class_);
    AddQualifiers(html_, class_);
    AddInstances();
    html_.Close();
    AddNames({"subclasses", "Subclasses"}, NamesOf(ListSubClasses(class_, false)));
    AddProperties();
    AddMethods();
    AddNames({"associations", "Associations that lead to it"}, ListAssociations());
    return page_.Finish();
  }

 private:
  static std::vector<std::string> NamesOf(const TClassList& classes) {
    std::vector<std::string> names;
    for (const auto& cimClass : classes) names.push_back(cimClass->GetName({}));
    return names;
  }

  void AddSuperClasses() {
    std::vector<std::string> names;
    for (auto above = class_.GetSuperClass({}); above && !above->IsRootClass({});
         above = above->GetSuperClass({})) {
      names.insert(names.begin(), above->GetName({}));
    }
    html_.Open("nav", {{"class", "crumbs"}, {"aria-label", "Superclasses"}});
    html_.AddLink("/classes", "Classes");
    for (const std::string& name : names) {
      html_.Text(" / ");
      page_.AddClassLink(name);
    }
    html_.Text(" / " + name_);
    html_.Close();
  }

  void AddInstances() {
    const std::size_t count = ListInstances(class_, true).size();
    html_.Open("p");
    if (count == 0) {
      html_.Text("There are no instances.");
    } else {
      html_.AddLink(InstancesUrl(name_), TText::Count(count, "instance"), {{"class", "button"}});
    }
    html_.Close();
  }

  struct THeading {
    const char* id;
    const char* text;
  };

  void AddNames(const THeading& heading, const std::vector<std::string>& names) {
    if (names.empty()) return;
    page_.OpenSection(heading.id, heading.text);
    html_.Open("ul", {{"class", "names"}});
    for (const std::string& name : names) {
      html_.Open("li");
      page_.AddClassLink(name);
      html_.Close();
    }
    html_.Close();
    html_.Close();
  }

  std::vector<std::string> ListAssociations() {
    std::set<std::string> names;
    for (const auto& association :
         ListElements<boost::shared_ptr<ICIMClass>>([this](const TCIMClassCallback& callback) {
           class_.EnumerateAssociationClasses(callback, "", "", {});
         })) {
      names.insert(association->GetName({}));
    }
    return {names.begin(), names.end()};
  }

  void AddProperties() {
    const auto keys = TInstanceReader::ListKeyNames(class_);
    page_.OpenSection("properties", "Properties");
    page_.OpenTable("Properties of " + name_, {{"data-whole", "yes"}});
    page_.AddHead({"Property", "Type", "What it is", "Declared in", "Default"});
    for (const auto& property : ListPropertyDecls(class_)) {
      AddProperty(*property, keys.count(property->GetName({})) > 0);
    }
    page_.CloseTable();
    html_.Close();
  }

  void AddProperty(const ICIMPropertyDecl& property, bool isKey) {
    const TCIMValue& value = property.GetDefaultValue({});
    OpenRow(property.GetName({}));
    if (isKey) page_.AddMark("key");
    html_.Close();
    html_.Open("td");
    html_.Add("code", TypeText(property.GetType({})));
    if (const auto target = value.GetReferencedClass()) {
      html_.Text(" to ");
      page_.AddClassLink(target->GetName({}));
    }
    html_.Close();
    html_.Open("td");
    AddQualifiers(html_, property);
    html_.Close();
    AddOrigin(property.GetClass({}));
    html_.Add("td", value.IsNull() ? "" : TPrinter::ValueText(value));
    html_.Close();
  }

  void OpenRow(const std::string& name) {
    html_.Open("tr", {{"id", "of-" + name}});
    html_.Open("th", {{"scope", "row"}});
    html_.Text(name);
  }

  void AddOrigin(const boost::shared_ptr<ICIMClass>& origin) {
    html_.Open("td");
    if (origin) page_.AddClassLink(origin->GetName({}));
    html_.Close();
  }

  void AddMethods() {
    const auto methods = ListMethodDecls(class_);
    if (methods.empty()) return;
    page_.OpenSection("methods", "Methods");
    page_.OpenTable("Methods of " + name_);
    page_.AddHead({"Method", "Returns", "What it does", "Declared in"});
    for (const auto& method : methods) AddMethod(*method);
    page_.CloseTable();
    html_.Close();
  }

  void AddMethod(ICIMMethodDecl& method) {
    OpenRow(method.GetName({}));
    html_.Text("()");
    html_.Close();
    html_.Open("td");
    html_.Add("code", TypeText(method.GetReturnType({})));
    html_.Close();
    html_.Open("td");
    AddQualifiers(html_, method);
    html_.Open("dl");
    for (const auto& parameter : ListParameterDecls(method)) {
      html_.Open("dt");
      html_.Add("code", TypeText(parameter->GetType({})) + ' ' + parameter->GetName({}));
      html_.Close();
      html_.Open("dd");
      AddQualifiers(html_, *parameter);
      html_.Close();
    }
    html_.Close();
    html_.Close();
    AddOrigin(method.GetClass({}));
    html_.Close();
  }

  ICIMClass& class_;
  std::string name_;
  TPage page_;
  THtml& html_;
};

}  // namespace

std::string ClassPage(const TPageRequest& asked) {
  const auto cimClass = TElementFinder(asked.nameSpace).FindClass(asked.className);
  return TClassPage(*asked.nameSpace, *cimClass).Write();
}

}  // namespace NZELVYR20
