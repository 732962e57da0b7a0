#pragma once

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>

#include "INamespaceProvider.h"

namespace NZELVYR20 {

/// Loads the repository's plug-in, for the life of the process.
class TPluginLoader {
 public:
  TPluginLoader() = delete;

  /// The provider "inmem" that the library at `path` registers. No path means the library
  /// beside the program or in ../lib/vyr and, where there is none, the one on the dynamic linker's
  /// path. A name without slash is a file of the working directory or else looked for on that
  /// path. Throws TCommandError.
  static boost::shared_ptr<INamespaceProvider> LoadProvider(const std::optional<std::string>& path);
};

}  // namespace NZELVYR20
