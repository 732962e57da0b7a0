#include "TSchemaRows.h"

namespace NZELVYR20 {
namespace {

using T = TCIMValue::TCIMType;

const char* const kHostKey = "Class of the computer system.";
const char* const kHostName = "Name of the computer system.";
const char* const kOwnClass = "Class that the instance was made from.";

TClassRow GetSystemElementRow() {
  return {
      "CIM_ManagedSystemElement",
      "CIM_ManagedElement",
      TClassRow::kAbstract,
      "A system or a part of one.",
      {{"InstallDate", T::kDateTime, "When the element was put in place."},
       {"Name", T::kString, "Name by which the element is known."},
       TPropertyRow("OperationalStatus", T::kUInt16Array, "How the element does; first the main.")
           .Meaning({{0, "Unknown"},
                     {1, "Other"},
                     {2, "OK"},
                     {3, "Degraded"},
                     {4, "Stressed"},
                     {5, "Predictive Failure"},
                     {6, "Error"},
                     {7, "Non-Recoverable Error"},
                     {8, "Starting"},
                     {9, "Stopping"},
                     {10, "Stopped"},
                     {11, "In Service"},
                     {12, "No Contact"},
                     {13, "Lost Communication"},
                     {14, "Aborted"},
                     {15, "Dormant"},
                     {16, "Supporting Entity in Error"},
                     {17, "Completed"},
                     {18, "Power Mode"}}),
       {"StatusDescriptions", T::kStringArray, "Words for each entry of OperationalStatus."},
       TPropertyRow("HealthState", T::kUInt16, "How well the element itself is.")
           .Meaning({{0, "Unknown"},
                     {5, "OK"},
                     {10, "Degraded/Warning"},
                     {15, "Minor failure"},
                     {20, "Major failure"},
                     {25, "Critical failure"},
                     {30, "Non-recoverable error"}})}};
}

TMethodRow GetStateChangeRow() {
  return {"RequestStateChange",
          T::kUInt32,
          "Asks the element to enter a state; 0 for success.",
          {TPropertyRow("RequestedState", T::kUInt16, "The state.")
               .With("In", true)
               .Meaning({{2, "Enabled"},
                         {3, "Disabled"},
                         {4, "Shut Down"},
                         {6, "Offline"},
                         {7, "Test"},
                         {8, "Defer"},
                         {9, "Quiesce"},
                         {10, "Reboot"},
                         {11, "Reset"}}),
           TPropertyRow("TimeoutPeriod", T::kDateTime, "How long it may take; none for no limit.")
               .With("In", true)}};
}

std::vector<TClassRow> GetBaseRows() {
  return {
      {"CIM_ManagedElement",
       "",
       TClassRow::kAbstract,
       "Whatever can be managed.",
       {{"Caption", T::kString, "One line about the element."},
        {"Description", T::kString, "The element in words."},
        {"ElementName", T::kString, "Name for people; need not be unique."}}},

      GetSystemElementRow(),

      {"CIM_LogicalElement",
       "CIM_ManagedSystemElement",
       TClassRow::kAbstract,
       "A part that is not hardware itself, or a function that hardware offers.",
       {}},

      TClassRow(
          "CIM_EnabledLogicalElement", "CIM_LogicalElement", TClassRow::kAbstract,
          "A logical element that can be enabled and disabled.",
          {TPropertyRow("EnabledState", T::kUInt16, "Whether the element takes requests.")
               .Meaning({{0, "Unknown"},
                         {1, "Other"},
                         {2, "Enabled"},
                         {3, "Disabled"},
                         {4, "Shutting Down"},
                         {5, "Not Applicable"},
                         {6, "Enabled but Offline"},
                         {7, "In Test"},
                         {8, "Deferred"},
                         {9, "Quiesce"},
                         {10, "Starting"}}),
           {"OtherEnabledState", T::kString, "The state in words where EnabledState is Other."}})
          .Does(GetStateChangeRow()),
  };
}

std::vector<TClassRow> GetPhysicalRows() {
  return {
      {"CIM_PhysicalElement",
       "CIM_ManagedSystemElement",
       TClassRow::kAbstract,
       "Something that can be touched.",
       {TPropertyRow("Tag", T::kString, "Tells the element from all others.").Key(),
        TPropertyRow("CreationClassName", T::kString, kOwnClass).Key(),
        {"Manufacturer", T::kString, "Who made it."},
        {"Model", T::kString, "What its maker calls it."},
        {"SKU", T::kString, "Under which number it is sold."},
        {"SerialNumber", T::kString, "Number that its maker gave to this very piece."},
        {"Version", T::kString, "Version that its maker gave."}}},

      {"CIM_PhysicalPackage",
       "CIM_PhysicalElement",
       TClassRow::kAbstract,
       "A physical element that holds others.",
       {}},

      {"CIM_PhysicalFrame",
       "CIM_PhysicalPackage",
       TClassRow::kAbstract,
       "A frame: a chassis, a rack and the like.",
       {}},

      {"CIM_Chassis",
       "CIM_PhysicalFrame",
       TClassRow::kConcrete,
       "The box that holds the parts of a computer.",
       {TPropertyRow("ChassisPackageType", T::kUInt16, "Form of the box.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {3, "Desktop"},
                      {4, "Low Profile Desktop"},
                      {5, "Pizza Box"},
                      {6, "Mini Tower"},
                      {7, "Tower"},
                      {8, "Portable"},
                      {9, "LapTop"},
                      {10, "Notebook"},
                      {11, "Hand Held"},
                      {12, "Docking Station"},
                      {13, "All in One"},
                      {14, "Sub Notebook"},
                      {15, "Space-Saving"},
                      {16, "Lunch Box"},
                      {17, "Main System Chassis"},
                      {18, "Expansion Chassis"},
                      {19, "SubChassis"},
                      {20, "Bus Expansion Chassis"},
                      {21, "Peripheral Chassis"},
                      {22, "Storage Chassis"},
                      {24, "Sealed-Case PC"}})}},
  };
}

TClassRow GetOperatingSystemRow() {
  return TClassRow(
             "CIM_OperatingSystem", "CIM_EnabledLogicalElement", TClassRow::kConcrete,
             "The software that makes the hardware of a computer usable.",
             {TPropertyRow("CSCreationClassName", T::kString, kHostKey)
                  .Key()
                  .With("Propagated", "CIM_ComputerSystem.CreationClassName"),
              TPropertyRow("CSName", T::kString, kHostName)
                  .Key()
                  .With("Propagated", "CIM_ComputerSystem.Name"),
              TPropertyRow("CreationClassName", T::kString, kOwnClass).Key(),
              TPropertyRow("Name", T::kString, "Name of the operating system.").Key().Override(),
              TPropertyRow("OSType", T::kUInt16, "Kind of operating system.")
                  .Meaning({{0, "Unknown"}, {1, "Other"}, {36, "LINUX"}}),
              {"OtherTypeDescription", T::kString, "More about OSType."},
              {"Version", T::kString, "Release of the operating system."},
              {"LastBootUpTime", T::kDateTime, "When it was started."},
              {"LocalDateTime", T::kDateTime, "Its date and time."},
              {"NumberOfProcesses", T::kUInt32, "Processes that are loaded or run."},
              {"MaxNumberOfProcesses", T::kUInt32, "How many there can be; 0 for no fixed limit."},
              TPropertyRow("TotalVirtualMemorySize", T::kUInt64, "Physical memory and swap space.")
                  .In("KiloBytes"),
              TPropertyRow("FreeVirtualMemory", T::kUInt64, "What of it is free.").In("KiloBytes"),
              TPropertyRow("TotalVisibleMemorySize", T::kUInt64,
                           "Physical memory that the operating system can use.")
                  .In("KiloBytes"),
              TPropertyRow("FreePhysicalMemory", T::kUInt64, "Physical memory that nothing uses.")
                  .In("KiloBytes"),
              // The two are compared: one prefix for both.
              TPropertyRow("SizeStoredInPagingFiles", T::kUInt64, "Size of the swap space.")
                  .In("KiloBytes")
                  .With("DisplayFixedUnits", "Mega"),
              TPropertyRow("FreeSpaceInPagingFiles", T::kUInt64, "Swap space that nothing uses.")
                  .In("KiloBytes")
                  .With("DisplayFixedUnits", "Mega")})
      .Does({"Reboot", T::kUInt32, "Starts the operating system anew; 0 for success."})
      .Does({"Shutdown", T::kUInt32, "Ends the operating system; 0 for success."});
}

std::vector<TClassRow> GetSystemRows() {
  return {
      {"CIM_System",
       "CIM_EnabledLogicalElement",
       TClassRow::kAbstract,
       "Parts that work together as one.",
       {TPropertyRow("CreationClassName", T::kString, kOwnClass).Key(),
        TPropertyRow("Name", T::kString, "Name that tells the system from all others.")
            .Key()
            .Override(),
        {"NameFormat", T::kString, "How Name was made."}}},

      {"CIM_ComputerSystem", "CIM_System", TClassRow::kConcrete, "A computer.", {}},

      GetOperatingSystemRow(),
  };
}

}  // namespace

std::vector<TClassRow> GetSystemClassRows() {
  return JoinRows({GetBaseRows(), GetPhysicalRows(), GetSystemRows()});
}

}  // namespace NZELVYR20
