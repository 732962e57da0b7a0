#pragma once

#include <ICIMNamespace.h>

#include <boost/shared_ptr.hpp>
#include <string>

namespace examples {

namespace vyr = NZELVYR20;

/// A namespace with Demo_Box and Demo_Disk, both under Demo_Part, and the association
/// Demo_PartInBox, and with instances from the file's lines, as RefreshDisks reads them.
boost::shared_ptr<vyr::ICIMNamespace> CollectDisks(const std::string& file);

/// Reads a file anew, or a later one. Its lines are "box part", where the part is a box itself, or
/// "box disk bytes state". A part that is there already stays the same instance: a value that is
/// another one now is set, and the one before recorded. What the file no longer names is deleted.
/// Throws std::runtime_error for a file that cannot be read and for a line that reads otherwise.
void RefreshDisks(const boost::shared_ptr<vyr::ICIMNamespace>& nameSpace, const std::string& file);

}  // namespace examples
