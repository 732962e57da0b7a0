#include "ArrayMembers.h"

#include "BlockDeviceText.h"

namespace NZELVYR20 {

std::map<std::string, TArrayMember> ListArrayMembers(const TMachineFolder& devices) {
  static const std::string kMember = "dev-";
  std::map<std::string, TArrayMember> members;
  for (const std::string& name : devices.GetNames()) {
    // The kernel names them all so.
    if (name.compare(0, 2, "md") != 0) continue;
    const TMachineFolder array = devices.Enter(name).Enter("md");
    for (const std::string& entry : array.GetNames()) {
      if (entry.compare(0, kMember.size(), kMember) != 0) continue;
      const TMachineFolder folder = array.Enter(entry);
      members[entry.substr(kMember.size())] = {name, folder.ReadValue("state"),
                                               folder.ReadValue("slot")};
    }
  }
  return members;
}

void SetArray(TInstanceDraft& draft, const TMachineFolder& md) {
  const TArrayState state =
      ParseArrayState(md.ReadValue("array_state"), md.ReadValue("degraded"),
                      md.ReadValue("raid_disks"), md.ReadValue("sync_action"));
  draft.Set("Description", "Array of disks")
      .SetText("ErrorMethodology", md.ReadValue("level"))
      .SetCodes("OperationalStatus", {state.operationalStatus})
      .SetTexts("StatusDescriptions", {state.description})
      .SetCode("HealthState", state.healthState);
}

void SetMember(TInstanceDraft& draft, const TArrayMember& member) {
  draft.SetCodes("OperationalStatus", {ParseMemberState(member.state, member.slot)})
      .SetTexts("StatusDescriptions", {member.state + " in " + member.array});
}

}  // namespace NZELVYR20
