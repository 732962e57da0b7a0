#include "Disks.h"

#include <OpenNamespace.h>
#include <TClassDraft.h>
#include <TInstanceDraft.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace examples {
namespace {

using TType = vyr::TCIMValue::TCIMType;
using TNamespacePtr = boost::shared_ptr<vyr::ICIMNamespace>;

void DefineDisks(const TNamespacePtr& nameSpace) {
  vyr::DeclareStandardQualifiers(*nameSpace);
  vyr::TClassDraft(nameSpace, "Demo_Part")
      .Qualify("Abstract", true)
      .AddProperty("Name", TType::kString, {{"Key", true}})
      .Add();
  vyr::TClassDraft(nameSpace, "Demo_Shelf", "Demo_Part").Add();
  vyr::TClassDraft(nameSpace, "Demo_Disk", "Demo_Part")
      .AddProperty("Capacity", TType::kUInt64, {{"Units", "Bytes"}})
      .AddProperty("State", TType::kUInt16,
                   {{"ValueMap", vyr::TextArray({"2", "3"})},
                    {"Values", vyr::TextArray({"Enabled", "Disabled"})}})
      .Add();
  // A class takes references only once it is an association.
  vyr::TClassDraft(nameSpace, "Demo_DiskInShelf")
      .Qualify("Association", true)
      .AddReference("Shelf", "Demo_Shelf", {{"Key", true}})
      .AddReference("Disk", "Demo_Disk", {{"Key", true}})
      .Add();
}

/// Another line about the same shelf puts the like in its place.
void AddLine(const TNamespacePtr& nameSpace, const std::string& line) {
  std::istringstream fields(line);
  std::string shelf;
  std::string disk;
  std::uint64_t capacity = 0;
  std::uint16_t state = 0;
  if (!(fields >> shelf >> disk >> capacity >> state)) {
    throw std::runtime_error("not \"shelf disk bytes state\": " + line);
  }
  const auto shelfPath = vyr::TInstanceDraft(nameSpace, "Demo_Shelf").Set("Name", shelf).Add();
  const auto diskPath = vyr::TInstanceDraft(nameSpace, "Demo_Disk")
                            .Set("Name", disk)
                            .Set("Capacity", capacity)
                            .Set("State", state)
                            .Add();
  vyr::TInstanceDraft(nameSpace, "Demo_DiskInShelf")
      .Set("Shelf", shelfPath)
      .Set("Disk", diskPath)
      .Add();
}

}  // namespace

TNamespacePtr CollectDisks(const std::string& file) {
  std::ifstream lines(file);
  if (!lines) throw std::runtime_error("cannot read " + file);
  auto nameSpace = vyr::OpenNamespace();
  DefineDisks(nameSpace);
  for (std::string line; std::getline(lines, line);) AddLine(nameSpace, line);
  return nameSpace;
}

}  // namespace examples
