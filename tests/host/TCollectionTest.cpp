#include <gtest/gtest.h>

#include "TCollection.h"
#include "THostNamespace.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

TEST(Collection, ASlipIsNoted) {
  const THostNamespace host("");
  TRootObject::SetCoreLogger({});
  TRootObject::SetLogThreshold(-1);  // the repository writes about each, too
  TCollection collection("/", host.Get());
  TInstanceDraft draft = collection.DraftDevice("CIM_NetworkPort", "x");
  draft.Set("PortType", TCIMValue(5)).Set("Nothing", "y").Set("Name", "z");
  EXPECT_TRUE(collection.Add(draft));
  collection.Add(collection.Draft("CIM_Chassis"));
  TRootObject::SetLogThreshold(3);
  std::vector<std::string> notes;
  for (const TCollectorNote& note : collection.GetNotes()) {
    notes.push_back(note.what + ": " + note.why);
  }
  EXPECT_EQ((std::vector<std::string>{
                "CIM_NetworkPort.PortType = sint32 5: the type does not match (uint16)",
                "CIM_NetworkPort.Nothing = string y: not declared",
                "CIM_Chassis: The namespace did not take the instance"}),
            notes);
  EXPECT_EQ("Name=z", host.ShowAll(host.ListPaths("CIM_NetworkPort").at(0)));
}

}  // namespace
}  // namespace NZELVYR20
