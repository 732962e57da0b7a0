#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "ICIMInstance.h"

namespace NZELVYR20 {

/// What stands behind the question mark of an address.
using TUrlQuery = std::vector<std::pair<std::string, std::string>>;

/// An address within the site; whatever is not plain in the path or the query is percent-encoded,
/// and what has no value is left out.
std::string MakeUrl(const std::string& path, const TUrlQuery& query = {});

/// The page of a class.
std::string ClassUrl(const std::string& className);
/// The table of its instances.
std::string InstancesUrl(const std::string& className, const TUrlQuery& query = {});
/// The page of an instance; empty where its path is longer than servers take.
std::string InstanceUrl(const ICIMInstance& instance);

}  // namespace NZELVYR20
