#include "TPage.h"

#include "MachineName.h"

namespace NZELVYR20 {

TPage::TPage(ICIMNamespace& nameSpace, const std::string& title, const std::string& search) {
  const std::string machine = FindMachineName(nameSpace);
  html_.Open("html", {{"xmlns", "http://www.w3.org/1999/xhtml"}, {"lang", "en"}});
  html_.Open("head");
  html_.AddEmpty("meta", {{"charset", "utf-8"}});
  html_.AddEmpty("meta",
                 {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
  html_.AddEmpty("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
  html_.Add("title", machine.empty() ? title : title + " - " + machine);
  html_.AddEmpty("link", {{"rel", "icon"}, {"href", "/icon.svg"}});
  html_.AddEmpty("link", {{"rel", "stylesheet"}, {"href", "/style.css"}});
  html_.Add("script", "", {{"src", "/script.js"}, {"defer", "defer"}});
  html_.Close();
  html_.Open("body");
  AddHeader(machine, search);
  html_.Open("main", {{"id", "main"}});
  html_.Add("h1", title);
}

void TPage::AddHeader(const std::string& machine, const std::string& search) {
  html_.AddLink("#main", "Skip to the content", {{"class", "skip"}});
  html_.Open("header");
  html_.AddLink("/", machine.empty() ? "Repository" : machine, {{"class", "home"}});
  html_.Open("nav", {{"aria-label", "Site"}});
  html_.AddLink("/", "Overview");
  html_.AddLink("/classes", "Classes");
  html_.Close();
  html_.Open("form", {{"action", "/search"}, {"role", "search"}});
  html_.Add("label", "Search", {{"for", "q"}});
  html_.AddEmpty("input", {{"type", "search"},
                           {"id", "q"},
                           {"name", "q"},
                           {"value", search},
                           {"placeholder", "class, property or value"}});
  html_.Add("button", "Find");
  html_.Close();
  html_.Close();
}

void TPage::OpenSection(const std::string& id, const std::string& heading) {
  html_.Open("section", {{"aria-labelledby", id}});
  html_.Add("h2", heading, {{"id", id}});
}

void TPage::OpenTable(const std::string& caption, const THtml::TAttributes& attributes) {
  html_.Open("div",
             {{"class", "wide"}, {"role", "region"}, {"tabindex", "0"}, {"aria-label", caption}});
  html_.Open("table", attributes);
  html_.Add("caption", caption);
}

void TPage::AddHead(const std::vector<std::string>& columns) {
  html_.Open("thead");
  html_.Open("tr");
  for (const std::string& column : columns) html_.Add("th", column, {{"scope", "col"}});
  html_.Close();
  html_.Close();
  html_.Open("tbody");
}

void TPage::CloseTable() {
  html_.Close();
  html_.Close();
  html_.Close();
}

void TPage::AddMark(const std::string& text) {
  html_.Text(" ");
  html_.Add("span", text, {{"class", "mark"}});
}

void TPage::AddClassLink(const std::string& className) {
  html_.AddLink(ClassUrl(className), className);
}

void TPage::AddMarks(const ICIMClass& cimClass) {
  if (cimClass.IsAbstract({})) AddMark("abstract");
  if (cimClass.IsAssociation({})) AddMark("association");
}

}  // namespace NZELVYR20
