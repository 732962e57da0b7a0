#include "TInstanceWriter.h"

#include <string>
#include <utility>
#include <vector>

#include "ICIMClass.h"
#include "TCommandError.h"
#include "TInstanceReader.h"
#include "TJsonList.h"
#include "TMofWriter.h"
#include "TPrinter.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

const std::vector<std::string> kPropertyColumns = {"class", "path",  "property",
                                                   "type",  "value", "text"};

TRow PropertyRow(const std::string& className, const std::string& path,
                 const ICIMProperty& property) {
  const TCIMValue& value = property.GetValue({});
  return {{TCIMValue(className), {}},
          {TCIMValue(path), {}},
          {TCIMValue(TInstanceReader::NameOf(property)), {}},
          {TCIMValue(TypeText(property.GetType({}))), {}},
          {value, {}},
          {value, TPrinter::PropertyText(property)}};
}

}  // namespace

TInstanceWriter::TInstanceWriter(TListForm form, TWriteText write)
    : form_(std::move(form)), write_(std::move(write)) {}

void TInstanceWriter::WriteList(const TInstanceList& instances,
                                const TPropertyChoice& choice) const {
  if (form_.format == EFormat::kMof) {
    throw TCommandError("MOF has whole instances: no properties can be chosen");
  }
  if (!IsJson()) return WriteRows(instances, choice, false);
  WriteJson(instances, [&choice](ICIMInstance& instance) { return choice.Read(instance); });
}

void TInstanceWriter::WriteList(const TInstanceList& instances) const {
  if (IsJson() || form_.format == EFormat::kMof) return WriteWhole(instances);
  WriteRows(instances, TPropertyChoice::FindFilled(instances), form_.format == EFormat::kCsv);
}

void TInstanceWriter::WriteWhole(const TInstanceList& instances) const {
  switch (form_.format) {
    case EFormat::kJson:
    case EFormat::kJsonLines:
      return WriteJson(instances, ListProperties);
    case EFormat::kMof:
      return WriteMof(instances);
    default:
      return WriteProperties(instances);
  }
}

bool TInstanceWriter::IsJson() const {
  return form_.format == EFormat::kJson || form_.format == EFormat::kJsonLines;
}

void TInstanceWriter::WriteJson(const TInstanceList& instances, const TRead& read) const {
  const bool isLines = form_.format == EFormat::kJsonLines;
  TJsonList list(isLines, write_);
  for (const auto& instance : instances) {
    list.Add(isLines ? TInstanceJson::WriteLine(*instance, read(*instance), form_.origin)
                     : TInstanceJson::Write(*instance, read(*instance)));
  }
  list.Finish();
}

void TInstanceWriter::WriteProperties(const TInstanceList& instances) const {
  const auto rows = TRowWriter::Make(EFormat::kCsv, kPropertyColumns, form_.terminal, write_);
  for (const auto& instance : instances) {
    const std::string className = instance->GetClass({})->GetName({});
    const std::string path = TPrinter::PathText(*instance);
    for (const auto& property : ListProperties(*instance)) {
      if (!property->GetValue({}).IsNull()) rows->Add(PropertyRow(className, path, *property));
    }
  }
  rows->Finish();
}

void TInstanceWriter::WriteMof(const TInstanceList& instances) const {
  const char* separator = "";
  for (const auto& instance : instances) {
    write_(separator + TMofWriter::WriteInstance(instance));
    separator = "\n";
  }
}

void TInstanceWriter::WriteRows(const TInstanceList& instances, const TPropertyChoice& choice,
                                bool hasPath) const {
  std::vector<std::string> columns = choice.GetNames();
  if (hasPath) columns.insert(columns.begin(), "path");
  const auto rows = TRowWriter::Make(form_.format, columns, form_.terminal, write_);
  for (const auto& instance : instances) {
    TRow row;
    row.reserve(columns.size());
    if (hasPath) row.push_back({TCIMValue(TPrinter::PathText(*instance)), {}});
    for (const auto& property : choice.Read(*instance)) {
      row.push_back(property ? MakeCell(*property) : TCell());
    }
    rows->Add(row);
  }
  rows->Finish();
}

TCell TInstanceWriter::MakeCell(const ICIMProperty& property) const {
  if (form_.isRaw) return {property.GetValue({}), {}};
  return {property.GetValue({}), TPrinter::PropertyText(property)};
}

}  // namespace NZELVYR20
