#include "TInstanceCommands.h"

#include <set>
#include <string>
#include <vector>

#include "ListClasses.h"
#include "ListElements.h"
#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TTable.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

/// The path and what is not null. An association goes without its path, which would only repeat the
/// references below it.
std::string SummaryText(ICIMInstance& instance, bool isAssociation, const TTerminal& terminal) {
  std::string text;
  if (!isAssociation) text += "  " + TPrinter::PathText(instance) + '\n';
  TTable table(isAssociation ? 2 : 4, terminal);
  for (const auto& property : ListProperties(instance)) {
    if (!property->GetValue({}).IsNull()) {
      table.AddRow({TInstanceReader::NameOf(*property), TPrinter::PropertyText(*property)});
    }
  }
  table.AppendTo(text);
  return text;
}

void WriteSection(const ICIMClass& cimClass, const TInstanceList& instances,
                  const TTerminal& terminal, const TWriteText& write) {
  write(cimClass.GetName({}) + " (" + TText::Count(instances.size(), "instance") + ")");
  const bool isAssociation = cimClass.IsAssociation({});
  for (const auto& instance : instances) {
    write('\n' + SummaryText(*instance, isAssociation, terminal));
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

void TInstanceCommands::Overview(ICIMNamespace& nameSpace, const TTerminal& terminal,
                                 const TWriteText& write) {
  const char* separator = "";
  for (const auto& cimClass : ListAllClasses(nameSpace)) {
    const TInstanceList instances = ListInstances(*cimClass, false);
    if (instances.empty()) continue;
    write(separator);
    WriteSection(*cimClass, instances, terminal, write);
    separator = "\n";
  }
}

std::string TInstanceCommands::Show(ICIMInstance& instance, bool isRaw, const TTerminal& terminal) {
  const auto cimClass = instance.GetClass({});
  const std::set<std::string> keys = TInstanceReader::ListKeyNames(*cimClass);

  TTable table(0, terminal);
  table.SetHeader({"Property", "Type", "Marks", "Value"});
  for (const auto& property : ListProperties(instance)) {
    const std::string name = TInstanceReader::NameOf(*property);
    table.AddRow(
        {name, TypeText(property->GetType({})), Marks(*property, keys.count(name) > 0),
         isRaw ? TPrinter::ValueText(property->GetValue({})) : TPrinter::PropertyText(*property)});
  }
  return "Class  " + cimClass->GetName({}) + "\nPath   " + TPrinter::PathText(instance) + "\n\n" +
         table.ToString();
}

}  // namespace NZELVYR20
