#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TCIMReference.h"
#include "TDiskRow.h"

namespace NZELVYR20 {

/// Disks in the repository, used as a collector and a consumer use it. The operations are those of
/// TMapStore.
class TPluginStore {
 public:
  using TPath = TCIMReference;
  using TInstance = boost::shared_ptr<ICIMInstance>;

  TPluginStore();

  void Fill(const std::vector<TDiskRow>& rows);

  /// For who fills it in another way.
  const boost::shared_ptr<ICIMNamespace>& GetNamespace() const { return space_; }
  static const char* GetClassName();

  /// The path knows its text already, as the other stores' paths are texts.
  TPath MakePath(const TDiskRow& row) const;
  TInstance Get(const TPath& path) const { return space_->GetInstance(path, {}); }

  static void SetCapacity(const TInstance& instance, std::uint64_t capacity);
  static std::uint64_t GetCapacity(const TInstance& instance);

  std::size_t Count() const;
  std::uint64_t SumCapacities() const;

 private:
  boost::shared_ptr<ICIMNamespace> space_;
  boost::shared_ptr<ICIMClass> disk_;
};

}  // namespace NZELVYR20
