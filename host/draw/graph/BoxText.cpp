#include "BoxText.h"

#include <string>

#include "TText.h"

namespace NZELVYR20 {

std::string ShortLine(const std::string& text) { return TText::Cut(text, 48, "…"); }

TPicture::TBox BoxOf(const TLabel& label) {
  TPicture::TBox box{label.className, {ShortLine(label.name)}};
  if (!label.title.empty()) box.lines.push_back(ShortLine(label.title));
  return box;
}

}  // namespace NZELVYR20
