#pragma once

#include <boost/shared_ptr.hpp>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "TPicture.h"
#include "TWeb.h"

namespace NZELVYR20 {

/// All instances. What has parts is a frame around them; arrows are all other associations, but for
/// those between a part and what is around it. Of the instances of a class to which no arrow leads,
/// one box lists what stands in the same frame.
TPicture PictureOfMachine(ICIMNamespace& nameSpace);

/// What a walk met, with where it started as the main box; arrows lead down.
TPicture PictureOfWeb(const TWeb& web);

/// A class and those below it, and the associations that their instances may have by the references
/// that a class declares; the classes at the other ends stand outside.
TPicture PictureOfClass(const boost::shared_ptr<ICIMClass>& top);

}  // namespace NZELVYR20
