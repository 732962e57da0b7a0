#include <algorithm>
#include <string>

#include "ListNeighbours.h"
#include "Pages.h"
#include "TCommandError.h"
#include "TPage.h"
#include "TPaging.h"
#include "TPrinter.h"

namespace NZELVYR20 {
namespace {

struct TGroupQuery {
  std::string path;
  std::string association;
  std::string role;

  std::string Url(std::size_t page) const {
    return MakeUrl("/neighbours", {{"path", path},
                                   {"association", association},
                                   {"role", role},
                                   {"page", std::to_string(page)}});
  }
};

void AddNeighbour(TPage& page, const TNeighbour& neighbour, TInstanceNames& names) {
  THtml& html = page.GetHtml();
  html.Open("tr");
  html.Open("th", {{"scope", "row"}});
  html.AddLink(InstanceUrl(*neighbour.instance), CutName(neighbour.name, kTextWidth));
  html.Close();
  html.Add("td", CutName(names.TitleOf(*neighbour.instance), kTextWidth));
  html.Open("td");
  page.AddClassLink(neighbour.instance->GetClass({})->GetName({}));
  html.Close();
  html.Open("td");
  html.AddLink(InstanceUrl(*neighbour.association),
               neighbour.association->GetClass({})->GetName({}));
  html.Close();
  html.Close();
}

}  // namespace

std::string NeighboursPage(const TPageRequest& asked) {
  const TGroupQuery query{asked.request.Get("path"), asked.request.Get("association"),
                          asked.request.Get("role")};
  const auto instance = asked.FindInstance();
  TInstanceNames names;
  const auto groups = ListNeighbours(instance, names);
  const auto group = std::find_if(groups.begin(), groups.end(), [&](const auto& one) {
    return one.association == query.association && one.role == query.role;
  });
  if (group == groups.end()) {
    throw TCommandError("Nothing is associated by " + query.association + '.' + query.role);
  }
  TPage page(*asked.nameSpace, group->role + " by " + group->association);
  THtml& html = page.GetHtml();
  const TPaging paging(group->members.size(), asked.request.Get("page"));
  html.Open("p", {{"class", "lead"}});
  html.Text(paging.ToString() + " around ");
  html.AddLink(InstanceUrl(*instance), CutName(names.FullNameOf(*instance), kTextWidth));
  html.Close();
  page.OpenTable("Associated instances", {{"data-whole", paging.IsWhole() ? "yes" : "no"}});
  page.AddHead({"Name", "Title", "Class", "Associated by"});
  for (std::size_t i = paging.GetFirst(); i < paging.GetEnd(); ++i) {
    AddNeighbour(page, group->members[i], names);
  }
  page.CloseTable();
  paging.AddLinks(html, [&query](std::size_t number) { return query.Url(number); });
  return page.Finish();
}

}  // namespace NZELVYR20
