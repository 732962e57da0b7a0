#pragma once

#include <string_view>

namespace NZELVYR20 {

/// How deep elements may stand in each other; the deepest request has some twenty, unless keys are
/// references whose keys are references.
constexpr int kDeepestElement = 200;

/// Throws a TRefusal unless the text is UTF-8 and well-formed as far as the parser after it does
/// not see to that: characters, references, comments, quotes, one root, and nothing around it. A
/// document type is refused, so that no entity is ever declared.
void CheckXml(std::string_view text);

}  // namespace NZELVYR20
