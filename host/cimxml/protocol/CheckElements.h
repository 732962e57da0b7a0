#pragma once

#include <pugixml.hpp>

namespace NZELVYR20 {

/// Throws a TRefusal unless the element, and all within it, are what the document type of the
/// protocol lets a request hold: attributes, children and their order.
void CheckElements(const pugi::xml_node& element);

}  // namespace NZELVYR20
