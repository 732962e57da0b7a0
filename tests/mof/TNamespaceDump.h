#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// All that the interfaces tell of a namespace, one fact a line: two namespaces are equal when
/// their dumps are. Siblings come in order of addition, everything else as it is enumerated.
class TNamespaceDump {
 public:
  explicit TNamespaceDump(const boost::shared_ptr<ICIMNamespace>& nameSpace);

  void Add(const std::string& fact) { lines_.push_back(fact); }

  /// The first line in which the dumps differ, of both, under the line before; empty where they
  /// are equal.
  std::string Compare(const TNamespaceDump& other) const;

  std::size_t GetSize() const { return lines_.size(); }

 private:
  std::string GetLine(std::size_t number) const;

  std::vector<std::string> lines_;
};

}  // namespace NZELVYR20
