#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// A GET as HTTP brought it, decoded.
struct TSiteRequest {
  std::string path;  ///< such as "/class/CIM_Processor"
  std::vector<std::pair<std::string, std::string>> query;

  /// The first value of that name; empty where there is none.
  std::string Get(const std::string& name) const;
};

/// What goes back.
struct TSiteAnswer {
  int status = 200;
  std::string type = "text/html; charset=utf-8";
  std::string body;
};

/// The pages for looking around in a namespace: plain HTML that needs nothing from elsewhere, no
/// sockets. It is for one thread at a time, as the repository is.
///
/// Pages are XML as well, and have neither script nor style of their own: both are files of this
/// site, so that a browser may be told to obey nothing else. However much there is, no page shows
/// more than some hundreds of rows. An unchanged namespace gives the same pages.
class TSite {
 public:
  /// Holds the namespace, which is read alone.
  explicit TSite(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// The page at a path; one that says so, with status 404, where there is nothing.
  TSiteAnswer Answer(const TSiteRequest& request) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
