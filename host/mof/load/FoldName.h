#pragma once

#include <boost/algorithm/string/case_conv.hpp>
#include <locale>
#include <string>

namespace NZELVYR20 {

/// The same text for all names that differ in letter case only.
inline std::string FoldName(const std::string& name) {
  return boost::algorithm::to_lower_copy(name, std::locale::classic());
}

}  // namespace NZELVYR20
