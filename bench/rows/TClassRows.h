#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// A hierarchy of classes, each a subclass of the one kFanOut times before it: each with properties
/// of its own, a description and a mark on class and properties, and with a few instances. The key
/// is the first class's first property.
struct TClassRows {
  struct TClass {
    std::string name;
    std::size_t parent;  ///< the first class is its own
    std::vector<std::string> properties;
    std::vector<std::string> keys;  ///< of its instances
  };

  static constexpr std::size_t kFanOut = 10;
  static constexpr std::size_t kProperties = 5;
  static constexpr std::size_t kInstances = 10;

  explicit TClassRows(std::size_t count);

  std::vector<TClass> classes;
};

inline const std::string kDescription = "Description";
inline const std::string kMark = "Bench_Mark";
inline const std::string kDescriptionText = "What it is, and what is meant by it.";

}  // namespace NZELVYR20
