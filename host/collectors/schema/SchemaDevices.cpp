#include "TSchemaRows.h"

namespace NZELVYR20 {
namespace {

using T = TCIMValue::TCIMType;

std::vector<TClassRow> GetProcessorRows() {
  return {
      TClassRow(
          "CIM_LogicalDevice", "CIM_EnabledLogicalElement", TClassRow::kAbstract,
          "What a piece of hardware does for a system.",
          {TPropertyRow("SystemCreationClassName", T::kString, "Class of the system.")
               .Key()
               .With("Propagated", "CIM_System.CreationClassName"),
           TPropertyRow("SystemName", T::kString, "Name of the system.")
               .Key()
               .With("Propagated", "CIM_System.Name"),
           TPropertyRow("CreationClassName", T::kString, "Class that the instance was made from.")
               .Key(),
           TPropertyRow("DeviceID", T::kString, "Tells the device from the others of its system.")
               .Key()})
          .Does({"Reset", T::kUInt32, "Resets the device; 0 for success."}),

      {"CIM_Processor",
       "CIM_LogicalDevice",
       TClassRow::kConcrete,
       "A processor: what one socket holds.",
       {{"Role", T::kString, "What the processor is there for."},
        TPropertyRow("Family", T::kUInt16, "Family to which it belongs.")
            .Meaning({{1, "Other"},
                      {2, "Unknown"},
                      {132, "AMD Opteron(TM) Processor Family"},
                      {179, "Intel(R) Xeon(TM)"},
                      {198, "Intel(R) Core(TM) i7 processor"},
                      {205, "Intel(R) Core(TM) i5 processor"},
                      {206, "Intel(R) Core(TM) i3 processor"},
                      {256, "ARMv7"},
                      {257, "ARMv8"}}),
        {"OtherFamilyDescription", T::kString, "The family in words where Family is Other."},
        {"Stepping", T::kString, "Revision within the family."},
        {"MaxClockSpeed", T::kUInt32, "Highest clock rate, in MHz."},
        {"CurrentClockSpeed", T::kUInt32, "Present clock rate, in MHz."},
        TPropertyRow("DataWidth", T::kUInt16, "Width of its data.").In("Bits"),
        TPropertyRow("AddressWidth", T::kUInt16, "Width of its addresses.").In("Bits"),
        TPropertyRow("CPUStatus", T::kUInt16, "Whether it is in use.")
            .Meaning({{0, "Unknown"},
                      {1, "CPU Enabled"},
                      {2, "CPU Disabled by User"},
                      {3, "CPU Disabled By BIOS (POST Error)"},
                      {4, "CPU Is Idle"},
                      {7, "Other"}}),
        {"NumberOfEnabledCores", T::kUInt16, "Cores that are in use."}}},

      {"CIM_ProcessorCore",
       "CIM_EnabledLogicalElement",
       TClassRow::kConcrete,
       "One core of a processor.",
       {TPropertyRow("InstanceID", T::kString, "Tells the core from all others.").Key(),
        TPropertyRow("CoreEnabledState", T::kUInt16, "Whether it is in use.")
            .Meaning({{0, "Unknown"},
                      {2, "Core Enabled"},
                      {3, "Core Disabled"},
                      {4, "Core Disabled by User"},
                      {5, "Core Disabled By POST Error"}})}},
  };
}

TClassRow GetEthernetPortRow() {
  return {"CIM_EthernetPort",
          "CIM_NetworkPort",
          TClassRow::kConcrete,
          "A port to an Ethernet.",
          {TPropertyRow("PortType", T::kUInt16, "Kind of Ethernet.")
               .Override()
               .Meaning({{0, "Unknown"},
                         {1, "Other"},
                         {50, "10BaseT"},
                         {51, "10-100BaseT"},
                         {52, "100BaseT"},
                         {53, "1000BaseT"},
                         {54, "2500BaseT"},
                         {55, "10GBaseT"},
                         {56, "10GBase-CX4"},
                         {100, "100Base-FX"},
                         {101, "100Base-SX"},
                         {102, "1000Base-SX"},
                         {103, "1000Base-LX"},
                         {104, "1000Base-CX"}})}};
}

std::vector<TClassRow> GetPortRows() {
  return {
      {"CIM_LogicalPort",
       "CIM_LogicalDevice",
       TClassRow::kAbstract,
       "Where a system is connected to something else.",
       {TPropertyRow("Speed", T::kUInt64, "Present rate of transfer.")
            .In("Bits per Second")
            .With("AbbreviateUnits", true)
            .With("NullDisplay", "Unknown"),
        TPropertyRow("MaxSpeed", T::kUInt64, "Highest rate of transfer.")
            .In("Bits per Second")
            .With("AbbreviateUnits", true),
        TPropertyRow("PortType", T::kUInt16, "Kind of port.")
            .Meaning({{0, "Unknown"}, {1, "Other"}, {2, "Not Applicable"}}),
        {"OtherPortType", T::kString, "The kind in words where PortType is Other."}}},

      {"CIM_NetworkPort",
       "CIM_LogicalPort",
       TClassRow::kConcrete,
       "A port to a network.",
       {TPropertyRow("LinkTechnology", T::kUInt16, "Kind of link.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {2, "Ethernet"},
                      {3, "IB"},
                      {4, "FC"},
                      {5, "FDDI"},
                      {6, "ATM"},
                      {7, "Token Ring"},
                      {8, "Frame Relay"},
                      {9, "Infrared"},
                      {10, "BlueTooth"},
                      {11, "Wireless LAN"}}),
        {"OtherLinkTechnology", T::kString, "The link in words where LinkTechnology is Other."},
        {"PermanentAddress", T::kString, "Address that its maker gave to the port."},
        {"NetworkAddresses", T::kStringArray, "Addresses that the port uses."},
        {"FullDuplex", T::kBoolean, "Whether it sends and receives at once."},
        TPropertyRow("ActiveMaximumTransmissionUnit", T::kUInt64,
                     "Largest unit that it transmits at present, in bytes.")}},

      GetEthernetPortRow(),
  };
}

}  // namespace

std::vector<TClassRow> GetDeviceClassRows() {
  return JoinRows({GetProcessorRows(), GetPortRows()});
}

}  // namespace NZELVYR20
