#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "TClassRows.h"
#include "TFloorRecord.h"

namespace NZELVYR20 {

/// The floor "map of maps" for a schema: classes by folded name, their declarations and qualifiers
/// in maps, inherited declarations shared. The operations are those of TPluginClasses.
class TMapClasses {
 public:
  explicit TMapClasses(const TClassRows& rows);

  void AddInstances(const TClassRows& rows);

  bool Has(const std::string& name) const;
  std::size_t CountSubClasses() const;
  std::size_t CountInstances() const;

 private:
  struct TDeclaration {
    std::string name;
    TFloorValue defaultValue;
    TFloorRecord qualifiers;
  };

  struct TClass {
    std::string name;
    TFloorRecord qualifiers;
    std::map<std::string, std::shared_ptr<TDeclaration>> declarations;
    std::vector<std::shared_ptr<TClass>> subClasses;
    std::map<std::string, std::shared_ptr<TFloorRecord>> instances;
  };

  static TFloorRecord DescribeAndMark();
  static std::size_t CountSubClasses(const TClass& top);
  static std::size_t CountInstances(const TClass& top);

  std::map<std::string, std::shared_ptr<TClass>> classes_;
  std::shared_ptr<TClass> top_;
};

}  // namespace NZELVYR20
