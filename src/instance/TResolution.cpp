#include "TResolution.h"

#include "TCIMReference.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

TResolution::TResolution(const boost::shared_ptr<TInmemNamespace>& nameSpace)
    : nameSpace_(nameSpace), outer_(nameSpace ? nameSpace->SetResolution(this) : nullptr) {}

TResolution::~TResolution() {
  if (nameSpace_) nameSpace_->SetResolution(outer_);
}

boost::shared_ptr<ICIMElement> TResolution::Resolve(const TCIMReference& path) {
  auto element = path.GetCIMElement(false);
  const bool isGiven = standing_.IsCurrent() && standing_.entry->instance == element &&
                       standing_.entry->path == path.GetPath();
  if (!isGiven) standing_ = TStanding();
  return element;
}

void TResolution::NoteGiven(const boost::shared_ptr<TInmemClass>& cimClass, TInstanceEntry& entry) {
  const TInstanceTable& table = cimClass->GetInstances();
  standing_ = {boost::shared_ptr<const TInstanceTable>(cimClass, &table), &entry,
               table.GetRemovals()};
}

}  // namespace NZELVYR20
