#pragma once

#include <string>

#include "TPicture.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// The picture in the language of Graphviz.
void WriteDot(const TPicture& picture, const TWriteText& write);

/// The picture as a flowchart of Mermaid.
void WriteMermaid(const TPicture& picture, const TWriteText& write);

/// The picture as "dot", "mermaid" or "svg". The last is what the program dot makes of the first,
/// if that is installed. Throws TCommandError.
void WritePicture(const TPicture& picture, const std::string& format, const TWriteText& write);

}  // namespace NZELVYR20
