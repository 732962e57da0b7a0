#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// The commands that print instances. Each returns its whole output; what the user names and the
/// namespace lacks is a TCommandError.
class TInstanceCommands {
 public:
  explicit TInstanceCommands(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// Every instance with its properties, class by class. Null properties, and classes without
  /// instances of their own, are left out.
  std::string Overview() const;

  /// The paths of a class's instances; with `deep`, also of its subclasses'.
  std::string List(const std::string& className, bool deep, bool isShort) const;

  /// How values are shown: as people read them, as they are stored, or both, as JSON.
  enum class EShow { kDisplay, kRaw, kJson };

  /// One instance with all its properties.
  std::string Show(const std::string& path, EShow form) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
