#pragma once

#include <string>

namespace NZELVYR20 {

/// What gives away that a computer is no machine of its own; empty where a sign is not there.
struct THostSigns {
  std::string container;           ///< what the container's manager calls itself
  std::string maker;               ///< as firmware names it
  std::string product;             ///< likewise
  std::string hypervisor;          ///< as the kernel names the one below it
  bool isUnderHypervisor = false;  ///< the processor says so
};

/// Such as "Virtual machine (KVM)" or "Container (docker)"; empty for a machine of its own, and
/// where nothing tells.
std::string DescribeHostKind(const THostSigns& signs);

}  // namespace NZELVYR20
