#pragma once

#include <ICIMNamespace.h>

#include <boost/shared_ptr.hpp>
#include <string>

namespace examples {

namespace vyr = NZELVYR20;

/// A namespace with Demo_Disk and Demo_Shelf, both under Demo_Part, and the association
/// Demo_DiskInShelf, and with instances from the file's lines, "shelf disk bytes state" each.
/// Throws std::runtime_error for a file that cannot be read and for a line that reads otherwise.
boost::shared_ptr<vyr::ICIMNamespace> CollectDisks(const std::string& file);

}  // namespace examples
