#pragma once

#include <string>

namespace NZELVYR20 {

/// The rule for names, and the key under which tables keep one: folded to lower case, alike in
/// every locale. An empty name is its own key. A name that is no CIM name is logged at level 0 and
/// thrown as status 25.
std::string NormalizeName(const std::string& name);

/// How declarations and qualifiers compare: by normalized name and nothing else. The left name is
/// normalized first.
bool IsSameName(const std::string& left, const std::string& right);
bool IsNameLess(const std::string& left, const std::string& right);

}  // namespace NZELVYR20
