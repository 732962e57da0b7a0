#pragma once

#include <string>

namespace NZELVYR20 {

class TInmemClass;

/// What is wrong with the table of the class's instances and with the index along associations, in
/// either direction; empty when all invariants hold.
std::string CheckIndex(const TInmemClass& cimClass);

}  // namespace NZELVYR20
