#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "TOrigin.h"

namespace NZELVYR20 {

/// Instances as JSON, for programs: with values as they are stored and texts as people read them.
/// JsonText.h says how values are written; the path is the one that lists print.
class TInstanceJson {
 public:
  using TProperties = std::vector<boost::shared_ptr<ICIMProperty>>;

  TInstanceJson() = delete;

  /// An object with "class", "path" and "properties", indented: each of the given properties with
  /// its type, value and text. Empty pointers are passed over. No line end stands after it.
  static std::string Write(ICIMInstance& instance, const TProperties& properties);

  /// One line, without its end, in the format of docs/jsonl.md.
  static std::string WriteLine(ICIMInstance& instance, const TProperties& properties,
                               const TOrigin& origin);
};

}  // namespace NZELVYR20
