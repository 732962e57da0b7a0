#pragma once

#include <boost/shared_ptr.hpp>
#include <vector>

#include "CompareNamespaces.h"
#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// Brings a namespace to the state of the one with which it was compared, by EMatch::kPath and with
/// the same schema. An instance that changed stays the same object: its values are set anew, and
/// the earlier ones recorded as the previous values. What went is deleted, what came is added.
void ApplyChanges(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                  const std::vector<TInstanceChange>& changes);

}  // namespace NZELVYR20
