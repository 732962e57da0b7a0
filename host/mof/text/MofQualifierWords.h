#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ICIMQualifierDecl.h"

namespace NZELVYR20 {

/// What a word for a flavor does: it sets the flavor or takes it away.
struct TMofFlavorWord {
  ICIMQualifierDecl::EFlavor flavor;
  bool isSet;
};

/// What a word of MOF stands for, in any letter case; empty where nobody knows it. The scope
/// "qualifier" is known and stands for nothing here.
std::optional<ICIMQualifierDecl::EScope> FindMofScope(const std::string& word);
std::optional<TMofFlavorWord> FindMofFlavor(const std::string& word);

/// The words for all of a scope.
std::vector<std::string> GetMofScopeWords(ICIMQualifierDecl::EScope scope);

/// The words that say of the flavors in `which` how they are in `flavor`.
std::vector<std::string> GetMofFlavorWords(unsigned flavor, unsigned which);

}  // namespace NZELVYR20
