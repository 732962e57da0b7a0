#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"

namespace NZELVYR20 {

/// Numbers that the repository shows: as they are, by a value map, with units.
class TPluginDisplay {
 public:
  /// A text for each number from 0.
  explicit TPluginDisplay(const std::vector<std::string>& meanings);

  std::string ShowPlain() const { return plain_->ToString(); }
  std::string ShowMapped() const { return mapped_->ToString(); }
  std::string ShowBytes() const { return bytes_->ToString(); }

  static constexpr unsigned kPlain = 1234567;
  static constexpr unsigned kMapped = 17;
  static constexpr unsigned kBytes = 5000000;

 private:
  using TNamedValues = std::vector<std::pair<std::string, TCIMValue>>;

  void Declare(const std::string& name, const TNamedValues& qualifiers);

  boost::shared_ptr<ICIMNamespace> space_;
  boost::shared_ptr<ICIMClass> class_;
  boost::shared_ptr<ICIMProperty> plain_;
  boost::shared_ptr<ICIMProperty> mapped_;
  boost::shared_ptr<ICIMProperty> bytes_;
};

}  // namespace NZELVYR20
