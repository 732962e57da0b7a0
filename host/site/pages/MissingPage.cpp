#include <string>
#include <vector>

#include "ListClasses.h"
#include "Pages.h"
#include "TPage.h"
#include "TSuggestion.h"

namespace NZELVYR20 {
namespace {

/// What may be the name of a class in the address: one of its own, or the front of a path.
std::string GuessClass(const TPageRequest& asked) {
  if (!asked.className.empty()) return asked.className;
  const std::string path = asked.request.Get("path");
  if (!path.empty()) return path.substr(0, path.find_first_of(".:"));
  return asked.request.path.substr(asked.request.path.rfind('/') + 1);
}

std::vector<std::string> Suggest(const TPageRequest& asked) {
  return TSuggestion::Nearest(GuessClass(asked), ListClassNames(*asked.nameSpace));
}

}  // namespace

std::string MissingPage(const TPageRequest& asked, const std::string& message) {
  TPage page(*asked.nameSpace, "Not found");
  THtml& html = page.GetHtml();
  html.Add("p", message, {{"class", "lead"}});
  const std::vector<std::string> nearest = Suggest(asked);
  if (!nearest.empty()) {
    html.Add("p", "You may have meant:");
    html.Open("ul");
    for (const std::string& name : nearest) {
      html.Open("li");
      page.AddClassLink(name);
      html.Close();
    }
    html.Close();
  }
  html.Open("p");
  html.Text("Look at the ");
  html.AddLink("/", "overview");
  html.Text(" or at ");
  html.AddLink("/classes", "all classes");
  html.Text(", or search above.");
  html.Close();
  return page.Finish();
}

}  // namespace NZELVYR20
