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
};

/// What goes back.
struct TSiteAnswer {
  int status = 200;
  std::string type = "text/html; charset=utf-8";
  std::string body;
};

/// The pages for looking around in a namespace: plain HTML that needs nothing from elsewhere, no
/// sockets. It is for one thread at a time, as the repository is.
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
