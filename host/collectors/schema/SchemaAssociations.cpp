#include "TSchemaRows.h"

namespace NZELVYR20 {
namespace {

using T = TCIMValue::TCIMType;

/// A key reference of an association at the top of its hierarchy.
TPropertyRow End(const char* name, const char* className, const char* description) {
  return TPropertyRow::Reference(name, className, description).Key();
}

/// A key reference that narrows the inherited one.
TPropertyRow Narrowed(const char* name, const char* className, const char* description) {
  return End(name, className, description).Override();
}

TPropertyRow Whole(const char* className, const char* description) {
  return Narrowed("GroupComponent", className, description).With("Aggregate", true);
}

std::vector<TClassRow> GetComponentRows() {
  return {
      TClassRow("CIM_Component", "", TClassRow::kAbstractAssociation,
                "A whole and one of its parts.",
                {End("GroupComponent", "CIM_ManagedElement", "The whole.").With("Aggregate", true),
                 End("PartComponent", "CIM_ManagedElement", "The part.")})
          .With("Aggregation", true),

      {"CIM_ConcreteComponent",
       "CIM_Component",
       TClassRow::kAssociation,
       "A whole and one of its parts, where no closer word exists.",
       {}},

      {"CIM_SystemComponent",
       "CIM_Component",
       TClassRow::kAssociation,
       "A system and one of its parts.",
       {Whole("CIM_System", "The system."),
        Narrowed("PartComponent", "CIM_ManagedSystemElement", "The part.")}},

      {"CIM_SystemDevice",
       "CIM_SystemComponent",
       TClassRow::kAssociation,
       "A system and one of its devices.",
       {Whole("CIM_System", "The system."),
        Narrowed("PartComponent", "CIM_LogicalDevice", "The device.")}},

      {"CIM_InstalledOS",
       "CIM_SystemComponent",
       TClassRow::kAssociation,
       "A computer and an operating system that is installed on it.",
       {Whole("CIM_ComputerSystem", "The computer."),
        Narrowed("PartComponent", "CIM_OperatingSystem", "The operating system."),
        {"PrimaryOS", T::kBoolean, "Whether the computer starts this one by itself."}}},

      {"CIM_HostedFileSystem",
       "CIM_SystemComponent",
       TClassRow::kAssociation,
       "A system and a file system that it shows.",
       {Whole("CIM_System", "The system."),
        Narrowed("PartComponent", "CIM_FileSystem", "The file system.")}},
  };
}

std::vector<TClassRow> GetCacheRows() {
  return {
      {"CIM_AssociatedMemory",
       "CIM_Dependency",
       TClassRow::kAssociation,
       "A device and memory that belongs to it.",
       {Narrowed("Antecedent", "CIM_Memory", "The memory."),
        Narrowed("Dependent", "CIM_LogicalDevice", "The device.")}},

      {"CIM_AssociatedCacheMemory",
       "CIM_AssociatedMemory",
       TClassRow::kAssociation,
       "A device and its cache.",
       {TPropertyRow("Level", T::kUInt16, "Level of the cache.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {2, "Primary"},
                      {3, "Secondary"},
                      {4, "Tertiary"},
                      {5, "Not Applicable"}}),
        {"OtherLevelDescription", T::kString, "The level in words where Level is Other."},
        TPropertyRow("CacheType", T::kUInt16, "What the cache holds.")
            .Meaning(
                {{0, "Unknown"}, {1, "Other"}, {2, "Instruction"}, {3, "Data"}, {4, "Unified"}}),
        TPropertyRow("LineSize", T::kUInt32, "Size of a line.").In("Bytes"),
        TPropertyRow("Associativity", T::kUInt16, "In how many places a line can stand.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {2, "Direct Mapped"},
                      {3, "2-way Set-Associative"},
                      {4, "4-way Set-Associative"},
                      {5, "Fully Associative"},
                      {6, "8-way Set-Associative"},
                      {7, "16-way Set-Associative"}})}},
  };
}

std::vector<TClassRow> GetDependencyRows() {
  return {
      {"CIM_Dependency",
       "",
       TClassRow::kAbstractAssociation,
       "An element and one that needs it.",
       {End("Antecedent", "CIM_ManagedElement", "The element that is needed."),
        End("Dependent", "CIM_ManagedElement", "The element that needs it.")}},

      {"CIM_RunningOS",
       "CIM_Dependency",
       TClassRow::kAssociation,
       "A computer and the operating system that runs on it.",
       {Narrowed("Antecedent", "CIM_OperatingSystem", "The operating system."),
        Narrowed("Dependent", "CIM_ComputerSystem", "The computer.")}},

      {"CIM_SystemPackaging",
       "CIM_Dependency",
       TClassRow::kAbstractAssociation,
       "A system and the hardware that makes it up.",
       {Narrowed("Antecedent", "CIM_PhysicalElement", "The hardware."),
        Narrowed("Dependent", "CIM_System", "The system.")}},

      {"CIM_ComputerSystemPackage",
       "CIM_SystemPackaging",
       TClassRow::kAssociation,
       "A computer and the box that it is in.",
       {Narrowed("Antecedent", "CIM_PhysicalPackage", "The box."),
        Narrowed("Dependent", "CIM_ComputerSystem", "The computer.")}},

      {"CIM_MediaPresent",
       "CIM_Dependency",
       TClassRow::kAssociation,
       "A drive and the storage on its medium.",
       {Narrowed("Antecedent", "CIM_MediaAccessDevice", "The drive."),
        Narrowed("Dependent", "CIM_StorageExtent", "The storage."),
        {"FixedMedia", T::kBoolean, "Whether the medium cannot be taken out."}}},

      {"CIM_BasedOn",
       "CIM_Dependency",
       TClassRow::kAssociation,
       "Storage, and storage that was made from it.",
       {Narrowed("Antecedent", "CIM_StorageExtent", "The storage below."),
        Narrowed("Dependent", "CIM_StorageExtent", "The storage that was made from it."),
        {"StartingAddress", T::kUInt64, "Its first block on the storage below."},
        {"EndingAddress", T::kUInt64, "Its last block on the storage below."},
        {"OrderIndex", T::kUInt16, "Its place among those on the storage below."}}},

      {"CIM_ResidesOnExtent",
       "CIM_Dependency",
       TClassRow::kAssociation,
       "An element, such as a file system, and the storage that carries it.",
       {Narrowed("Antecedent", "CIM_StorageExtent", "The storage."),
        Narrowed("Dependent", "CIM_LogicalElement", "The element that it carries.")}},
  };
}

}  // namespace

std::vector<TClassRow> GetAssociationClassRows() {
  return JoinRows({GetComponentRows(), GetDependencyRows(), GetCacheRows()});
}

}  // namespace NZELVYR20
