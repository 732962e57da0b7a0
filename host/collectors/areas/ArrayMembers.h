#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "TInstanceDraft.h"
#include "TMachineFolder.h"

namespace NZELVYR20 {

/// A disk, or a part of one, in an array of disks.
struct TArrayMember {
  std::string array;
  std::string state;  ///< in the kernel's words
  std::string slot;   ///< its place in the array, or "none"
};

/// The members of all arrays, by their names; the folder is /sys/block.
std::map<std::string, TArrayMember> ListArrayMembers(const TMachineFolder& devices);

/// Says how the array as a whole does.
void SetArray(TInstanceDraft& draft, const TMachineFolder& md);

/// Says what the storage is to its array.
void SetMember(TInstanceDraft& draft, const TArrayMember& member);

}  // namespace NZELVYR20
