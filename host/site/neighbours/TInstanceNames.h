#pragma once

#include <string>

#include "ICIMInstance.h"
#include "TLabels.h"

namespace NZELVYR20 {

/// What the site calls instances.
class TInstanceNames {
 public:
  /// The values of its own keys; of an association the names of what it joins.
  std::string NameOf(ICIMInstance& instance);
  /// The same with its title, where it has one.
  std::string FullNameOf(ICIMInstance& instance);
  /// What else is said of it in short; may be empty.
  std::string TitleOf(ICIMInstance& instance) { return labels_.Read(instance).title; }

 private:
  TLabels labels_;
};

/// How much of a name or text stands in a cell, in characters.
constexpr std::size_t kTextWidth = 100;

/// A long name, cut to so many characters.
std::string CutName(const std::string& name, std::size_t width);

}  // namespace NZELVYR20
