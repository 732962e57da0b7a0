#pragma once

#include <ICIMNamespace.h>

#include <string>

namespace examples {

namespace vyr = NZELVYR20;

/// Defines Demo_Disk and Demo_Shelf, both under Demo_Part, and the association Demo_DiskInShelf.
void DefineDisks(vyr::ICIMNamespace& nameSpace);

/// Makes instances from the file's lines, "shelf disk bytes state" each. Throws std::runtime_error
/// for a file that cannot be read and for a line that reads otherwise; what came before it stays.
void CollectDisks(vyr::ICIMNamespace& nameSpace, const std::string& file);

}  // namespace examples
