#include <string>

#include "WalkBoxes.h"
#include "WritePicture.h"

namespace NZELVYR20 {
namespace {

/// What would end a text, or change its shape, by its number.
std::string Number(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    if (std::string("\"#&<>`\\").find(letter) == std::string::npos) {
      escaped += letter;
    } else {
      escaped += '#' + std::to_string(static_cast<int>(letter)) + ';';
    }
  }
  return escaped;
}

std::string QuotedLabel(const TPicture::TBox& box) {
  std::string text = Number(box.kind);
  for (const std::string& line : box.lines) text += (text.empty() ? "" : "<br/>") + Number(line);
  return "[\"" + text + "\"]";
}

const char* Line(TPicture::EArrow form) {
  switch (form) {
    case TPicture::EArrow::kLine:
      return " --- ";
    case TPicture::EArrow::kAside:
      return " -.-> ";
    default:
      return " --> ";
  }
}

}  // namespace

void WriteMermaid(const TPicture& picture, const TWriteText& write) {
  const auto line = [&write](std::size_t depth, const std::string& text) {
    write(std::string(2 * depth, ' ') + text + '\n');
  };
  const auto label = [&picture](std::size_t box) {
    return 'b' + std::to_string(box) + QuotedLabel(picture.boxes[box]);
  };
  write("flowchart LR\n");
  WalkBoxes(
      picture, [&](std::size_t box, std::size_t depth) { line(depth, label(box)); },
      [&](std::size_t box, std::size_t depth) { line(depth, "subgraph " + label(box)); },
      [&](std::size_t, std::size_t depth) { line(depth, "end"); });
  for (const TPicture::TArrow& arrow : picture.arrows) {
    line(1, 'b' + std::to_string(arrow.from) + Line(arrow.form) +
                (arrow.text.empty() ? "" : "|\"" + Number(arrow.text) + "\"| ") + 'b' +
                std::to_string(arrow.to));
  }
}

}  // namespace NZELVYR20
