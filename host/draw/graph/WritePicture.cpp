#include "WritePicture.h"

#include <string>

#include "RunFilter.h"
#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

/// With more, dot takes long, and nobody could find anything.
constexpr std::size_t kMostBoxes = 1000;

void WriteSvg(const TPicture& picture, const TWriteText& write) {
  if (picture.boxes.size() > kMostBoxes) {
    throw TCommandError("the picture has " + std::to_string(picture.boxes.size()) + " boxes" +
                        ", and of more than " + std::to_string(kMostBoxes) +
                        " no SVG is made; ask for a part of it, or for --format dot");
  }
  std::string text;
  WriteDot(picture, [&text](const std::string& piece) { text += piece; });
  write(RunFilter({"dot", "-Tsvg"}, text, "graphviz"));
}

}  // namespace

void WritePicture(const TPicture& picture, const std::string& format, const TWriteText& write) {
  if (format == "svg") return WriteSvg(picture, write);
  format == "mermaid" ? WriteMermaid(picture, write) : WriteDot(picture, write);
}

}  // namespace NZELVYR20
