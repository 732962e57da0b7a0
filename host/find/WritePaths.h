#pragma once

#include "ListElements.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// How a list of paths is written.
struct TPathListForm {
  bool isShort = false;
  bool keepsOrder = false;  ///< short paths come as people count unless somebody chose an order
};

/// The paths of a list, one a line: full ones in the list's order, or short ones.
void WritePaths(const TInstanceList& instances, TPathListForm form, const TWriteText& write);

}  // namespace NZELVYR20
