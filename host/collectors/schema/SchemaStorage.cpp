#include "TSchemaRows.h"

namespace NZELVYR20 {
namespace {

using T = TCIMValue::TCIMType;

std::vector<TClassRow> GetFileSystemRows() {
  return {
      {"CIM_FileSystem",
       "CIM_EnabledLogicalElement",
       TClassRow::kConcrete,
       "A way of keeping files, and the place where it does.",
       {TPropertyRow("CSCreationClassName", T::kString, "Class of the computer system.")
            .Key()
            .With("Propagated", "CIM_ComputerSystem.CreationClassName"),
        TPropertyRow("CSName", T::kString, "Name of the computer system.")
            .Key()
            .With("Propagated", "CIM_ComputerSystem.Name"),
        TPropertyRow("CreationClassName", T::kString, "Class that the instance was made from.")
            .Key(),
        TPropertyRow("Name", T::kString, "Name of the file system on its computer.")
            .Key()
            .Override(),
        {"Root", T::kString, "Folder under which its files appear."},
        TPropertyRow("BlockSize", T::kUInt64, "Unit in which it gives out space.").In("Bytes"),
        TPropertyRow("FileSystemSize", T::kUInt64, "Space for files, used or not.").In("Bytes"),
        TPropertyRow("AvailableSpace", T::kUInt64, "Space that ordinary users can still fill.")
            .In("Bytes"),
        {"ReadOnly", T::kBoolean, "Whether its files cannot be changed."},
        {"MaxFileNameLength", T::kUInt32, "Longest name of a file, in bytes."},
        {"FileSystemType", T::kString, "Kind of file system."},
        TPropertyRow("PersistenceType", T::kUInt16, "Whether its files outlive the computer's run.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {2, "Persistent"},
                      {3, "Temporary"},
                      {4, "External"}}),
        {"NumberOfFiles", T::kUInt64, "Files and folders in it."}}},

      {"CIM_LocalFileSystem",
       "CIM_FileSystem",
       TClassRow::kConcrete,
       "A file system that its computer manages itself.",
       {}},

      {"CIM_RemoteFileSystem",
       "CIM_FileSystem",
       TClassRow::kConcrete,
       "A file system that another computer serves.",
       {}},
  };
}

std::vector<TClassRow> GetExtentRows() {
  return {
      {"CIM_StorageExtent",
       "CIM_LogicalDevice",
       TClassRow::kConcrete,
       "A range of storage, in blocks.",
       {{"Purpose", T::kString, "What the storage is for."},
        TPropertyRow("Access", T::kUInt16, "How it can be used.")
            .Meaning({{0, "Unknown"},
                      {1, "Readable"},
                      {2, "Writeable"},
                      {3, "Read/Write Supported"},
                      {4, "Write Once"}}),
        TPropertyRow("BlockSize", T::kUInt64, "Size of a block.").In("Bytes"),
        {"NumberOfBlocks", T::kUInt64, "How many blocks there are."}}},

      {"CIM_Memory",
       "CIM_StorageExtent",
       TClassRow::kConcrete,
       "Memory, such as a cache.",
       {{"Volatile", T::kBoolean, "Whether its content is lost without power."}}},

      {"CIM_LogicalDisk",
       "CIM_StorageExtent",
       TClassRow::kConcrete,
       "Storage that a system sees as one disk.",
       {}},

      {"CIM_MediaPartition", "CIM_StorageExtent", TClassRow::kConcrete, "A part of a medium.", {}},

      {"CIM_GenericDiskPartition",
       "CIM_MediaPartition",
       TClassRow::kConcrete,
       "A part of a disk, however it is marked there.",
       {}},

      {"CIM_DiskPartition",
       "CIM_GenericDiskPartition",
       TClassRow::kConcrete,
       "A part of a disk that its partition table lists.",
       {}},

  };
}

std::vector<TClassRow> GetDriveRows() {
  return {
      {"CIM_MediaAccessDevice",
       "CIM_LogicalDevice",
       TClassRow::kConcrete,
       "A device that reads or writes a medium.",
       {TPropertyRow("Capabilities", T::kUInt16Array, "What it can do.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {2, "Sequential Access"},
                      {3, "Random Access"},
                      {4, "Supports Writing"},
                      {5, "Encryption"},
                      {6, "Compression"},
                      {7, "Supports Removeable Media"}}),
        TPropertyRow("MaxMediaSize", T::kUInt64, "Size of the largest medium.").In("KiloBytes"),
        TPropertyRow("DefaultBlockSize", T::kUInt64, "Usual size of a block.").In("Bytes")}},

      {"CIM_DiskDrive",
       "CIM_MediaAccessDevice",
       TClassRow::kConcrete,
       "A device that stores on a disk or on what stands in for one.",
       {TPropertyRow("DiskType", T::kUInt16, "Kind of drive.")
            .Meaning({{0, "Unknown"},
                      {1, "Other"},
                      {2, "Hard Disk Drive"},
                      {3, "Solid State Drive"},
                      {4, "Hybrid"}})}},
  };
}

}  // namespace

std::vector<TClassRow> GetStorageClassRows() {
  return JoinRows({GetExtentRows(), GetDriveRows(), GetFileSystemRows()});
}

}  // namespace NZELVYR20
