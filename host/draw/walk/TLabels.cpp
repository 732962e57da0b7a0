#include "TLabels.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "ReadValue.h"
#include "TPrinter.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

bool Declares(const ICIMClass& cimClass, const std::string& name) {
  for (const auto& declaration : ListPropertyDecls(cimClass)) {
    if (CompareFolded(declaration->GetName({}), name) == 0) return true;
  }
  return false;
}

/// Such as "256.0 GiB" of "256.0 GiB (274877906944 bytes)".
std::string WithoutRemark(const std::string& text) {
  return !text.empty() && text.back() == ')' ? text.substr(0, text.rfind(" (")) : text;
}

}  // namespace

TLabels::TClassFacts TLabels::Describe(const boost::shared_ptr<ICIMClass>& cimClass) {
  TClassFacts facts{cimClass, {}, {}};
  const std::vector<TInstanceKey> keys = ListInstanceKeys(*cimClass);
  std::copy_if(keys.begin(), keys.end(), std::back_inserter(facts.ownKeys),
               [](const TInstanceKey& key) { return key.isOwn; });
  if (facts.ownKeys.empty()) facts.ownKeys = keys;
  for (const char* const name : {"ElementName", "Caption"}) {
    if (Declares(*cimClass, name)) facts.titles.emplace_back(name);
  }
  return facts;
}

TLabel TLabels::Read(ICIMInstance& instance) {
  const auto cimClass = instance.GetClass({});
  auto found = known_.find(cimClass.get());
  if (found == known_.end()) found = known_.emplace(cimClass.get(), Describe(cimClass)).first;
  std::vector<std::string> values;
  values.reserve(found->second.ownKeys.size());
  for (const TInstanceKey& key : found->second.ownKeys) {
    values.push_back(TText::OneLine(TPrinter::ValueText(ReadValue(instance, key.name))));
  }
  TLabel label{cimClass->GetName({}), TText::Join(values, ","), ""};
  for (const std::string& title : found->second.titles) {
    if (!label.title.empty()) break;
    const std::string text = ReadText(instance, title);
    label.title = TText::OneLine(title == "Caption" ? WithoutRemark(text) : text);
    if (label.title == label.name) label.title.clear();
  }
  return label;
}

}  // namespace NZELVYR20
