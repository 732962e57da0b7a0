#include "TInstanceCommands.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ListClasses.h"
#include "ListElements.h"
#include "PathLines.h"
#include "TElementFinder.h"
#include "TInstanceJson.h"
#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TTable.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

/// Adds the path and what is not null. An association goes without its path, which would only
/// repeat the references below it.
void AppendSummary(std::string& text, ICIMInstance& instance, bool isAssociation) {
  if (!isAssociation) text += "  " + TPrinter::PathText(instance) + '\n';
  TTable table(isAssociation ? 2 : 4);
  for (const auto& property : ListProperties(instance)) {
    if (!property->GetValue({}).IsNull()) {
      table.AddRow({TInstanceReader::NameOf(*property), TPrinter::PropertyText(*property)});
    }
  }
  table.AppendTo(text);
}

void AppendSection(std::string& text, const ICIMClass& cimClass, const TInstanceList& instances) {
  const bool isAssociation = cimClass.IsAssociation({});
  text += (text.empty() ? "" : "\n") + cimClass.GetName({}) + " (" +
          TText::Count(instances.size(), "instance") + ")";
  for (const auto& instance : instances) {
    text += '\n';
    AppendSummary(text, *instance, isAssociation);
  }
}

std::string Marks(const ICIMProperty& property, bool isKey) {
  std::vector<std::string> marks;
  if (isKey) marks.emplace_back("key");
  if (property.IsDefaultValue({})) marks.emplace_back("default");
  if (property.GetValue({}).IsNull()) marks.emplace_back("null");
  return TText::Join(marks, ",");
}

}  // namespace

TInstanceCommands::TInstanceCommands(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {}

std::string TInstanceCommands::Overview() const {
  std::string text;
  for (const auto& cimClass : ListAllClasses(*namespace_)) {
    const TInstanceList instances = ListInstances(*cimClass, false);
    if (!instances.empty()) AppendSection(text, *cimClass, instances);
  }
  return text;
}

std::string TInstanceCommands::List(const std::string& className, bool deep, bool isShort) const {
  return PathLines(ListInstances(*TElementFinder(namespace_).FindClass(className), deep), isShort);
}

std::string TInstanceCommands::Show(const std::string& path, EShow form) const {
  const auto instance = TElementFinder(namespace_).FindInstance(path);
  if (form == EShow::kJson) return TInstanceJson::Write(*instance);
  const auto cimClass = instance->GetClass({});
  const std::set<std::string> keys = TInstanceReader::ListKeyNames(*cimClass);

  TTable table(0);
  table.AddRow({"Property", "Type", "Marks", "Value"});
  for (const auto& property : ListProperties(*instance)) {
    const std::string name = TInstanceReader::NameOf(*property);
    table.AddRow({name, TypeText(property->GetType({})), Marks(*property, keys.count(name) > 0),
                  form == EShow::kRaw ? TPrinter::ValueText(property->GetValue({}))
                                      : TPrinter::PropertyText(*property)});
  }
  return "Class  " + cimClass->GetName({}) + "\nPath   " + TPrinter::PathText(*instance) + "\n\n" +
         table.ToString();
}

}  // namespace NZELVYR20
