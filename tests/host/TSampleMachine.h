#pragma once

#include "TSampleTree.h"

namespace NZELVYR20 {

/// The tree of a machine with two processors of two cores, network ports of many kinds, disks with
/// partitions that carry logical and encrypted volumes and arrays, an empty card reader, an optical
/// drive, displays, services, and mounts of many kinds.
class TSampleMachine : public TSampleTree {
 public:
  TSampleMachine();
};

}  // namespace NZELVYR20
