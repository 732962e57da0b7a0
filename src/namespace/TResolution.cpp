#include "TResolution.h"

#include <utility>

#include "TCIMReference.h"
#include "TInmemNamespace.h"
#include "TInstanceTable.h"

namespace NZELVYR20 {

TResolution::TResolution(const boost::shared_ptr<TInmemNamespace>& nameSpace)
    : nameSpace_(nameSpace), outer_(nameSpace ? nameSpace->SetResolution(this) : nullptr) {}

TResolution::~TResolution() {
  if (nameSpace_) nameSpace_->SetResolution(outer_);
}

/// Rule 3 of TReferenceIndex.
boost::shared_ptr<ICIMElement> TResolution::Resolve(const TCIMReference& path) {
  standing_ = TStanding();  // of the path before
  auto element = path.GetCIMElement(false);
  const bool isGiven = standing_.IsCurrent() && given_ == element.get() &&
                       standing_.entry->GetPath() == path.GetPath();
  if (!isGiven) standing_ = TStanding();
  return element;
}

void TResolution::NoteGiven(TStanding standing, const ICIMElement& element) {
  standing_ = std::move(standing);
  given_ = &element;
}

}  // namespace NZELVYR20
