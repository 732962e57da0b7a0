#include "Disks.h"

#include <ICIMClass.h>
#include <ICIMInstance.h>
#include <ICIMPropertyDecl.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Repository.h"

namespace examples {
namespace {

using TType = vyr::TCIMValue::TCIMType;
using TNamedValues = std::vector<std::pair<std::string, vyr::TCIMValue>>;

vyr::TCIMValue Texts(std::vector<vyr::TCIMValue> texts) {
  return vyr::TCIMValue::Array(TType::kString, std::move(texts));
}

void Declare(vyr::ICIMNamespace& nameSpace, vyr::ICIMClass& cimClass, const std::string& name,
             const vyr::TCIMValue& defaultValue, const TNamedValues& qualifiers) {
  const auto declaration = cimClass.AllocatePropertyDecl(name, defaultValue, {});
  for (const auto& [qualifier, value] : qualifiers) {
    Qualify(nameSpace, *declaration, qualifier, value);
  }
  declaration->AddToClass({});
}

/// An instance of the same path is replaced. One that the repository refuses, for want of a key,
/// say, is logged and left out.
vyr::TCIMReference Add(vyr::ICIMNamespace& nameSpace, const std::string& className,
                       const TNamedValues& values) {
  const auto instance = nameSpace.GetClass(className, {})->AllocateInstance({});
  for (const auto& [name, value] : values) instance->SetPropertyValue(name, value, {});
  instance->AddToNamespace({});
  return instance->GetReference({});
}

}  // namespace

void DefineDisks(vyr::ICIMNamespace& nameSpace) {
  const auto part = nameSpace.AllocateClass("Demo_Part", {}, {});
  Qualify(nameSpace, *part, "Abstract", true);
  Declare(nameSpace, *part, "Name", vyr::TCIMValue::Null(TType::kString), {{"Key", true}});
  part->AddToNamespace({});

  const auto shelf = nameSpace.AllocateClass("Demo_Shelf", part, {});
  shelf->AddToNamespace({});

  const auto disk = nameSpace.AllocateClass("Demo_Disk", part, {});
  Declare(nameSpace, *disk, "Capacity", vyr::TCIMValue::Null(TType::kUInt64), {{"Units", "Bytes"}});
  Declare(nameSpace, *disk, "State", vyr::TCIMValue::Null(TType::kUInt16),
          {{"ValueMap", Texts({"2", "3"})}, {"Values", Texts({"Enabled", "Disabled"})}});
  disk->AddToNamespace({});

  // A class takes references only once it is an association. A null that knows its class declares
  // what a reference points to.
  const auto link = nameSpace.AllocateClass("Demo_DiskInShelf", {}, {});
  Qualify(nameSpace, *link, "Association", true);
  Declare(nameSpace, *link, "Shelf", vyr::TCIMValue::NullReference(shelf), {{"Key", true}});
  Declare(nameSpace, *link, "Disk", vyr::TCIMValue::NullReference(disk), {{"Key", true}});
  link->AddToNamespace({});
}

void CollectDisks(vyr::ICIMNamespace& nameSpace, const std::string& file) {
  std::ifstream lines(file);
  if (!lines) throw std::runtime_error("cannot read " + file);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string shelf;
    std::string disk;
    std::uint64_t capacity = 0;
    std::uint16_t state = 0;
    if (!(fields >> shelf >> disk >> capacity >> state)) {
      throw std::runtime_error("not \"shelf disk bytes state\": " + line);
    }
    const auto shelfPath = Add(nameSpace, "Demo_Shelf", {{"Name", shelf}});
    const auto diskPath =
        Add(nameSpace, "Demo_Disk", {{"Name", disk}, {"Capacity", capacity}, {"State", state}});
    Add(nameSpace, "Demo_DiskInShelf", {{"Shelf", shelfPath}, {"Disk", diskPath}});
  }
}

}  // namespace examples
