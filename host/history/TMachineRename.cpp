#include "TMachineRename.h"

#include <boost/algorithm/string/replace.hpp>

#include "MachineName.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

std::string Escape(std::string text) {
  boost::replace_all(text, "\\", "\\\\");
  boost::replace_all(text, "\"", "\\\"");
  return text;
}

std::string ValueText(const std::string& name) { return '"' + Escape(name) + '"'; }

}  // namespace

TMachineRename::TMachineRename(ICIMNamespace& before, ICIMNamespace& after)
    : before_(FindMachineName(before)), after_(FindMachineName(after)) {
  if (before_ == after_ || after_.empty()) before_.clear();
}

std::string TMachineRename::ToString() const {
  return "another machine, or another name of it: " + TText::OneLine(after_) + ", formerly " +
         TText::OneLine(before_) + "; the paths are compared regardless of that";
}

std::string TMachineRename::Map(std::string path) const {
  if (!IsThere()) return path;
  const std::string before = ValueText(before_);
  const std::string after = ValueText(after_);
  boost::replace_all(path, '=' + before, '=' + after);
  boost::replace_all(path, '=' + Escape(before), '=' + Escape(after));
  return path;
}

}  // namespace NZELVYR20
