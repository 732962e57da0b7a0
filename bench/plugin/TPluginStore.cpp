#include "TPluginStore.h"

#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"

namespace NZELVYR20 {
namespace {

const char* const kDisk = "Bench_Disk";

}  // namespace

TPluginStore::TPluginStore()
    : space_(AllocatePluginNamespace()), disk_(space_->AllocateClass(kDisk, {}, {})) {
  VisitDisk(TDiskRow(), [this](std::size_t position, const auto& value) {
    const auto type = TCIMValue(value).GetType();
    const auto declaration =
        disk_->AllocatePropertyDecl(kDiskNames[position], TCIMValue::Null(type), {});
    if (position == 0) Qualify(space_, *declaration, "Key");
    declaration->AddToClass({});
  });
  disk_->AddToNamespace({});
}

void TPluginStore::Fill(const std::vector<TDiskRow>& rows) {
  for (const TDiskRow& row : rows) {
    const auto instance = space_->GetClass(kDisk, {})->AllocateInstance({});
    VisitDisk(row, [&instance](std::size_t position, const auto& value) {
      instance->SetPropertyValue(kDiskNames[position], value, {});
    });
    instance->AddToNamespace({});
  }
}

const char* TPluginStore::GetClassName() { return kDisk; }

TPluginStore::TPath TPluginStore::MakePath(const TDiskRow& row) const {
  TCIMReference path(space_, {});
  path.SetClass(disk_);
  path.AddKeyValue(kDiskNames[0], row.deviceId);
  path.GetPath();
  return path;
}

void TPluginStore::SetCapacity(const TInstance& instance, std::uint64_t capacity) {
  instance->SetPropertyValue(kDiskNames[kCapacity], capacity, {});
}

std::uint64_t TPluginStore::GetCapacity(const TInstance& instance) {
  return static_cast<std::uint64_t>(instance->GetProperty(kDiskNames[kCapacity], {})->GetValue({}));
}

std::size_t TPluginStore::Count() const {
  std::size_t count = 0;
  disk_->EnumerateInstances([&count](const TInstance&) { return ++count != 0; }, false, {});
  return count;
}

std::uint64_t TPluginStore::SumCapacities() const {
  std::uint64_t sum = 0;
  const auto add = [&sum](const TInstance& instance) {
    sum += GetCapacity(instance);
    return true;
  };
  disk_->EnumerateInstances(add, false, {});
  return sum;
}

}  // namespace NZELVYR20
