#include <algorithm>
#include <string>

#include "Pages.h"
#include "QualifierText.h"
#include "TInventory.h"
#include "TMachineTree.h"
#include "TPage.h"
#include "TTreeList.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostCounted = 100;

void AddMachine(THtml& html, TMachineTree& machine) {
  TTreeList list(html);
  for (const TTreeLine& line : machine.Make()) {
    list.Begin(line.level);
    html.Text(line.text);
  }
  list.Finish();
}

void AddCount(TPage& page, const TInventory& inventory, std::size_t count,
              const std::string& className) {
  THtml& html = page.GetHtml();
  html.Open("tr");
  html.Open("th", {{"scope", "row"}});
  page.AddClassLink(className);
  html.Close();
  html.Open("td", {{"class", "number"}, {"data-value", std::to_string(count)}});
  html.AddLink(InstancesUrl(className, {{"only", "1"}}), std::to_string(count),
               {{"aria-label", std::to_string(count) + " instances of " + className}});
  html.Close();
  html.Add("td", ShortDescription(*inventory.FindClass(className)));
  html.Close();
}

void AddCounts(TPage& page, const TInventory& inventory) {
  auto counts = inventory.CountRest();
  page.OpenSection("classes", "What there is");
  page.OpenTable("Classes with instances, most first", {{"data-whole", "yes"}});
  page.AddHead({"Class", "Instances", "What it is"});
  for (std::size_t i = 0; i < std::min(counts.size(), kMostCounted); ++i) {
    AddCount(page, inventory, counts[i].first, counts[i].second);
  }
  page.CloseTable();
  page.GetHtml().Close();
}

}  // namespace

std::string OverviewPage(const TPageRequest& asked) {
  TPage page(*asked.nameSpace, "Overview");
  THtml& html = page.GetHtml();
  const TInventory fresh(*asked.nameSpace);
  const std::string count = fresh.CountAll();
  html.Open("p", {{"class", "lead"}});
  html.Text(count.empty() ? "There are no instances. " : count + ". ");
  html.AddLink("/classes", "All classes");
  html.Close();
  if (count.empty()) return page.Finish();
  TInventory inventory(*asked.nameSpace);
  TMachineTree machine(inventory, {});
  page.OpenSection("machine", "In short");
  AddMachine(html, machine);
  if (!machine.GetSubject().empty()) {
    html.Open("p");
    html.Text("Begin with what hangs on ");
    html.AddLink(MakeUrl("/instance", {{"path", machine.GetSubject()}}), machine.GetSubject());
    html.Close();
  }
  html.Close();
  AddCounts(page, fresh);
  return page.Finish();
}

}  // namespace NZELVYR20
