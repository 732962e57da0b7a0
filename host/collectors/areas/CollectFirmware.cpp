#include "CollectAreas.h"
#include "SystemText.h"
#include "TFirmwareFields.h"

namespace NZELVYR20 {
namespace {

constexpr unsigned kRunning = 3;
constexpr unsigned kNotApplicable = 66;

void AddBoard(TCollection& collection, const TFirmwareFields& fields,
              const std::optional<TCIMReference>& chassis) {
  const std::string model = fields.Read("board_name");
  const std::string maker = fields.Read("board_vendor");
  if (model.empty() && maker.empty()) return;
  TInstanceDraft draft = collection.Draft("CIM_Card");
  draft.Set("CreationClassName", "CIM_Card").Set("Tag", "board0").Set("HostingBoard", true);
  draft.Set("ElementName", model.empty() ? maker : model)
      .SetText("Manufacturer", maker)
      .SetText("Model", model)
      .SetText("Version", fields.Read("board_version"))
      .SetText("SerialNumber", fields.ReadQuietly("board_serial"));
  const std::optional<TCIMReference> board = collection.Add(draft);
  if (board && chassis) {
    collection.Link(collection.DraftComponent("CIM_PackageInChassis", *chassis, *board));
  }
}

void AddBios(TCollection& collection, const TFirmwareFields& fields) {
  const std::string maker = fields.Read("bios_vendor");
  const std::string version = fields.Read("bios_version");
  if (maker.empty() && version.empty()) return;
  TInstanceDraft draft = collection.Draft("CIM_BIOSElement");
  draft.Set("Name", "BIOS")
      .Set("Version", version)
      .SetCode("SoftwareElementState", kRunning)
      .Set("SoftwareElementID", "bios0")
      .SetCode("TargetOperatingSystem", kNotApplicable);
  draft.Set("ElementName", maker + (maker.empty() || version.empty() ? "" : " ") + version)
      .SetText("Manufacturer", maker)
      .Set("PrimaryBIOS", true);
  if (const auto date = ParseFirmwareDate(fields.Read("bios_date"))) {
    draft.Set("ReleaseDate", *date);
  }
  collection.AddPart(draft, "CIM_SystemBIOS");
}

}  // namespace

void CollectFirmware(TCollection& collection, const std::optional<TCIMReference>& chassis) {
  const TFirmwareFields fields(collection);
  AddBoard(collection, fields, chassis);
  AddBios(collection, fields);
}

}  // namespace NZELVYR20
