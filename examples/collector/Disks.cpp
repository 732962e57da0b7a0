#include "Disks.h"

#include <ICIMProperty.h>
#include <ListElements.h>
#include <OpenNamespace.h>
#include <TClassDraft.h>
#include <TInstanceDraft.h>

#include <cstdint>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace examples {
namespace {

using TType = vyr::TCIMValue::TCIMType;
using TNamespacePtr = boost::shared_ptr<vyr::ICIMNamespace>;
using TInstancePtr = boost::shared_ptr<vyr::ICIMInstance>;

void DefineDisks(const TNamespacePtr& nameSpace) {
  vyr::DeclareStandardQualifiers(*nameSpace);
  vyr::TClassDraft(nameSpace, "Demo_Part")
      .Qualify("Abstract", true)
      .AddProperty("Name", TType::kString, {{"Key", true}})
      .Add();
  vyr::TClassDraft(nameSpace, "Demo_Box", "Demo_Part").Add();
  vyr::TClassDraft(nameSpace, "Demo_Disk", "Demo_Part")
      .AddProperty("Capacity", TType::kUInt64, {{"Units", "Bytes"}})
      .AddProperty("State", TType::kUInt16,
                   {{"ValueMap", vyr::TextArray({"2", "3"})},
                    {"Values", vyr::TextArray({"Enabled", "Disabled"})}})
      .Add();
  // A class takes references only once it is an association.
  vyr::TClassDraft(nameSpace, "Demo_PartInBox")
      .Qualify("Association", true)
      .AddReference("Box", "Demo_Box", {{"Key", true}})
      .AddReference("Part", "Demo_Part", {{"Key", true}})
      .Add();
}

/// The part that is there, or a new one.
TInstancePtr TakePart(const TNamespacePtr& nameSpace, const char* className,
                      const std::string& name) {
  vyr::TCIMReference path(nameSpace, {});
  path.SetClass(nameSpace->GetClass(className, {}));
  path.AddKeyValue("Name", name);
  if (const TInstancePtr known = nameSpace->GetInstance(path, {})) return known;
  return nameSpace->GetInstance(vyr::TInstanceDraft(nameSpace, className).Set("Name", name).Add(),
                                {});
}

/// Whoever holds the property sees both values.
void Refresh(vyr::ICIMInstance& part, const char* name, const vyr::TCIMValue& value) {
  const auto property = part.GetProperty(name, {});
  if (property->GetValue({}) == value) return;
  if (!property->IsDefaultValue({})) property->SetPrevValue(property->GetValue({}));
  property->SetValue(value, {});
}

/// Gives the parts that the line names.
std::set<TInstancePtr> ReadLine(const TNamespacePtr& nameSpace, const std::string& line) {
  std::istringstream fields(line);
  std::string boxName;
  std::string name;
  std::uint64_t capacity = 0;
  std::uint16_t state = 0;
  fields >> boxName >> name;
  const bool isBox = !name.empty() && (fields >> std::ws).eof();
  if (!isBox && !(fields >> capacity >> state)) {
    throw std::runtime_error("neither \"box part\" nor \"box disk bytes state\": " + line);
  }
  const auto box = TakePart(nameSpace, "Demo_Box", boxName);
  const auto part = TakePart(nameSpace, isBox ? "Demo_Box" : "Demo_Disk", name);
  if (!isBox) {
    Refresh(*part, "Capacity", capacity);
    Refresh(*part, "State", state);
  }
  vyr::TInstanceDraft(nameSpace, "Demo_PartInBox")
      .Set("Box", box->GetReference({}))
      .Set("Part", part->GetReference({}))
      .Add();
  return {box, part};
}

}  // namespace

void RefreshDisks(const TNamespacePtr& nameSpace, const std::string& file) {
  std::ifstream lines(file);
  if (!lines) throw std::runtime_error("cannot read " + file);
  for (const auto& place : vyr::ListInstances(*nameSpace->GetClass("Demo_PartInBox", {}), false)) {
    place->Delete({});
  }
  std::set<TInstancePtr> named;
  for (std::string line; std::getline(lines, line);) named.merge(ReadLine(nameSpace, line));
  for (const auto& part : vyr::ListInstances(*nameSpace->GetClass("Demo_Part", {}), true)) {
    if (named.count(part) == 0) part->Delete({});
  }
}

TNamespacePtr CollectDisks(const std::string& file) {
  auto nameSpace = vyr::OpenNamespace();
  DefineDisks(nameSpace);
  RefreshDisks(nameSpace, file);
  return nameSpace;
}

}  // namespace examples
