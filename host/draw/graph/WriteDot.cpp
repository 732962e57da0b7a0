#include <string>
#include <vector>

#include "WalkBoxes.h"
#include "WritePicture.h"

namespace NZELVYR20 {
namespace {

constexpr const char* kHead =
    "digraph vyr {\n"
    "  graph [rankdir=LR, compound=true, nodesep=0.12, ranksep=0.6, pad=0.15,\n"
    "         fontname=\"Helvetica,Arial,sans-serif\", fontsize=11, labeljust=l, "
    "color=\"#9aa5b1\",\n"
    "         style=\"rounded,filled\", fillcolor=\"#00000008\", bgcolor=white];\n"
    "  node [shape=box, style=\"rounded,filled\", fillcolor=white, color=\"#52606d\", height=0.3,\n"
    "        fontname=\"Helvetica,Arial,sans-serif\", fontsize=11, margin=\"0.12,0.06\"];\n"
    "  edge [color=\"#52606d\", arrowsize=0.7, fontname=\"Helvetica,Arial,sans-serif\", "
    "fontsize=9,\n"
    "        fontcolor=\"#52606d\"];\n";

std::string Escape(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    switch (letter) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\\':
        escaped += "\\\\";  // one alone would make a word of Graphviz
        break;
      default:
        escaped += letter;
    }
  }
  return escaped;
}

/// The kind in small letters, the first line in bold ones; of a list and a frame
/// every line begins at the left.
std::string LabelText(const TPicture::TBox& box, bool isFrame) {
  const bool isLeft = isFrame || box.isList;
  const char* const end = isLeft ? "<br align=\"left\"/>" : "<br/>";
  std::string text;
  const auto add = [&](const std::string& before, const std::string& line, const char* after) {
    if (line.empty()) return;
    text += (text.empty() ? "" : end) + before + Escape(line) + after;
  };
  add("<font point-size=\"9\" color=\"#52606d\">", box.kind, "</font>");
  for (const std::string& line : box.lines) {
    const bool isBold = !box.isList && &line == &box.lines.front();
    add(isBold ? "<b>" : "", line, isBold ? "</b>" : "");
  }
  return '<' + text + (isLeft ? end : "") + '>';
}

const char* BoxStyle(TPicture::EBox form) {
  switch (form) {
    case TPicture::EBox::kMain:
      return ", fillcolor=\"#fff3c4\", penwidth=2";
    case TPicture::EBox::kOutside:
      return ", style=\"rounded,dashed\"";
    default:
      return "";
  }
}

const char* ArrowStyle(TPicture::EArrow form) {
  switch (form) {
    case TPicture::EArrow::kLine:
      return ", dir=none";
    case TPicture::EArrow::kSubclass:
      return ", dir=back, arrowtail=empty";
    case TPicture::EArrow::kAside:
      return ", style=dashed, color=\"#2b6cb0\", fontcolor=\"#2b6cb0\", weight=0";
    default:
      return "";
  }
}

/// Graphviz knows arrows between nodes only; one to a frame leads to an invisible node in it, and
/// ends at the frame.
std::vector<bool> FindTouched(const TPicture& picture) {
  std::vector<bool> isTouched(picture.boxes.size());
  for (const TPicture::TArrow& arrow : picture.arrows) {
    isTouched[arrow.from] = isTouched[arrow.to] = true;
  }
  return isTouched;
}

std::string Name(std::size_t box) { return 'b' + std::to_string(box); }

void WriteArrow(const TPicture::TArrow& arrow, const std::vector<bool>& isFrame,
                const TWriteText& write) {
  const std::string name = Name(arrow.from) + " -> " + Name(arrow.to);
  std::string style = ArrowStyle(arrow.form);
  if (isFrame[arrow.from]) style += ", ltail=cluster_" + Name(arrow.from);
  if (isFrame[arrow.to]) style += ", lhead=cluster_" + Name(arrow.to);
  write("  " + name + " [label=\"" + Escape(arrow.text) + "\"" + style + "];\n");
}

}  // namespace

void WriteDot(const TPicture& picture, const TWriteText& write) {
  const std::vector<bool> isTouched = FindTouched(picture);
  std::vector<bool> isFrame(picture.boxes.size());
  const auto indent = [](std::size_t depth) { return std::string(2 * depth, ' '); };
  write(kHead);
  WalkBoxes(
      picture,
      [&](std::size_t box, std::size_t depth) {
        write(indent(depth) + Name(box) + " [label=" + LabelText(picture.boxes[box], false) +
              BoxStyle(picture.boxes[box].form) + "];\n");
      },
      [&](std::size_t box, std::size_t depth) {
        isFrame[box] = true;
        write(indent(depth) + "subgraph cluster_" + Name(box) + " {\n" + indent(depth + 1) +
              "label=" + LabelText(picture.boxes[box], true) + ";\n");
        if (isTouched[box]) {
          write(indent(depth + 1) + Name(box) +
                " [shape=point, style=invis, width=0, height=0, label=\"\"];\n");
        }
      },
      [&](std::size_t, std::size_t depth) { write(indent(depth) + "}\n"); });
  for (const TPicture::TArrow& arrow : picture.arrows) WriteArrow(arrow, isFrame, write);
  write("}\n");
}

}  // namespace NZELVYR20
