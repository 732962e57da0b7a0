#include "TSite.h"

#include <string_view>
#include <utility>

#include "Pages.h"
#include "SiteFiles.h"
#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

using TMakePage = std::string (*)(const TPageRequest& asked);

/// Such as "CIM_Processor" of "/class/CIM_Processor/instances", which is then the page "instances"
/// of it.
struct TAddress {
  std::string page;
  std::string className;
};

TAddress ReadAddress(const std::string& path) {
  constexpr std::string_view kClass = "/class/";
  if (path.rfind(kClass, 0) != 0) return {path, ""};
  const std::string rest = path.substr(kClass.size());
  const std::size_t end = rest.find('/');
  if (end == std::string::npos) return {"/class/", rest};
  return {"/class/*" + rest.substr(end), rest.substr(0, end)};
}

TMakePage FindPage(const std::string& page) {
  constexpr std::pair<std::string_view, TMakePage> kPages[] = {
      {"/", OverviewPage},         {"/classes", ClassesPage},
      {"/class/", ClassPage},      {"/class/*/instances", InstancesPage},
      {"/instance", InstancePage}, {"/neighbours", NeighboursPage},
      {"/search", SearchPage},
  };
  for (const auto& [name, make] : kPages) {
    if (name == page) return make;
  }
  return nullptr;
}

}  // namespace

std::string TSiteRequest::Get(const std::string& name) const {
  for (const auto& [given, value] : query) {
    if (given == name) return value;
  }
  return "";
}

TSite::TSite(boost::shared_ptr<ICIMNamespace> nameSpace) : namespace_(std::move(nameSpace)) {}

TSiteAnswer TSite::Answer(const TSiteRequest& request) const {
  if (const TSiteFile* const file = FindSiteFile(request.path)) {
    return {200, file->type, file->text};
  }
  const TAddress address = ReadAddress(request.path);
  const TPageRequest asked{namespace_, request, address.className};
  TSiteAnswer answer;
  try {
    const TMakePage make = FindPage(address.page);
    if (!make) throw TCommandError("There is no page " + request.path);
    answer.body = make(asked);
  } catch (const TCommandError& error) {
    answer.status = 404;
    answer.body = MissingPage(asked, error.what());
  }
  return answer;
}

}  // namespace NZELVYR20
