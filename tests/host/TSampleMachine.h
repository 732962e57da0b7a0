#pragma once

#include "TSampleTree.h"

namespace NZELVYR20 {

/// The tree of a machine with two processors of two cores, two network ports and the loopback, a
/// disk with two partitions, of which one carries a logical volume, half an array of disks, an
/// empty card reader, an optical drive, and mounts of many kinds.
class TSampleMachine : public TSampleTree {
 public:
  TSampleMachine();
};

}  // namespace NZELVYR20
