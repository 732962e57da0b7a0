#pragma once

#include <ICIMNamespace.h>
#include <INamespaceProvider.h>

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>

namespace NZELVYR20 {

/// Loads the repository's plug-in, for the life of the process, and gives the provider "inmem" that
/// it registers. No path means the library beside the program, or in ../lib/vyr from there, or in
/// the same places from libvyrcore.so, or else on the dynamic linker's path. A name without
/// slash is a file of the working directory or else looked for on that path. Throws TKitError,
/// which names both files, where another copy of the plug-in has registered its provider, whichever
/// of the two came first; that provider then stays.
boost::shared_ptr<INamespaceProvider> LoadProvider(const std::optional<std::string>& path = {});

/// A new namespace of it, in which nothing is declared and nothing may be redefined. It lives as
/// long as somebody holds it. Throws TKitError.
boost::shared_ptr<ICIMNamespace> OpenNamespace(const std::optional<std::string>& path = {});

}  // namespace NZELVYR20
