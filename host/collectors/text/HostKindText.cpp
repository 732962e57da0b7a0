#include "HostKindText.h"

#include <array>
#include <string_view>

namespace NZELVYR20 {
namespace {

/// What is in the maker's name or the product's, and whose virtual machines say that.
struct TMakerRow {
  std::string_view maker;
  std::string_view product;
  std::string_view name;
};

constexpr std::array<TMakerRow, 11> kMakers = {
    {{"QEMU", "", "QEMU"},
     {"VMware", "", "VMware"},
     {"innotek", "VirtualBox", "VirtualBox"},
     {"Microsoft", "Virtual Machine", "Hyper-V"},
     {"Xen", "", "Xen"},
     {"Amazon EC2", "", "Amazon EC2"},
     {"Google", "Compute Engine", "Google Compute Engine"},
     {"Parallels", "", "Parallels"},
     {"OpenStack", "", "OpenStack"},
     {"", "BHYVE", "bhyve"},
     {"", "KVM", "KVM"}}};

bool Contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

std::string FindHypervisor(const THostSigns& signs) {
  for (const TMakerRow& row : kMakers) {
    if (Contains(signs.maker, row.maker) && Contains(signs.product, row.product)) {
      return std::string(row.name);
    }
  }
  return signs.hypervisor;
}

}  // namespace

std::string DescribeHostKind(const THostSigns& signs) {
  if (!signs.container.empty()) return "Container (" + signs.container + ")";
  const std::string hypervisor = FindHypervisor(signs);
  if (!hypervisor.empty()) return "Virtual machine (" + hypervisor + ")";
  return signs.isUnderHypervisor ? "Virtual machine" : "";
}

}  // namespace NZELVYR20
