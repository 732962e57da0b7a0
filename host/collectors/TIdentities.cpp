#include "TIdentities.h"

namespace NZELVYR20 {

TIdentities& TIdentities::Add(const std::string& what, const std::string& text) {
  if (text.empty()) return *this;
  kinds_.push_back(what);
  texts_.push_back(text);
  return *this;
}

void TIdentities::SetIn(TInstanceDraft& draft) const {
  if (kinds_.empty()) return;
  draft.SetTexts("IdentifyingDescriptions", kinds_).SetTexts("OtherIdentifyingInfo", texts_);
}

}  // namespace NZELVYR20
