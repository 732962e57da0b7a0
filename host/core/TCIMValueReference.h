#pragma once

#include <boost/shared_ptr.hpp>

#include "TCIMReference.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// The content of a reference value. One that stands in a null value has a path of class alone.
struct TCIMValue::TReference {
  TCIMReference path;
  boost::shared_ptr<ICIMClass> referencedClass;
};

}  // namespace NZELVYR20
