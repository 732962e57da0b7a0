#pragma once

#include "ICIMProperty.h"
#include "THtml.h"
#include "TInstanceNames.h"

namespace NZELVYR20 {

/// A value as people read it: a reference as a link to where it leads, by its name. A long text is
/// cut to `width` characters; 0 leaves all as they are.
void AddPropertyValue(THtml& html, const ICIMProperty& property, TInstanceNames& names,
                      std::size_t width);

}  // namespace NZELVYR20
