#pragma once

#include <string>

#include "ICIMNamedElement.h"
#include "THtml.h"

namespace NZELVYR20 {

/// The value of a qualifier as text; empty where the element has none of that name.
std::string QualifierText(const ICIMNamedElement& element, const std::string& name);

/// The first sentence of the element's description; empty where it has none.
std::string ShortDescription(const ICIMNamedElement& element);

/// What an element's qualifiers say: its description and units in words, the meanings of its values
/// as a list to unfold, and all others by name and value.
void AddQualifiers(THtml& html, const ICIMNamedElement& element);

}  // namespace NZELVYR20
