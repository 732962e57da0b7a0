#pragma once

#include <boost/shared_ptr.hpp>

#include "ICIMInstance.h"
#include "TElementForm.h"
#include "TOperation.h"

namespace NZELVYR20 {

/// How much of instances a call asks for. Of these, what only their classes declare is never left
/// out: who leaves LocalOnly out would lose what is inherited.
TElementForm InstanceForm(const TArguments& arguments);

/// The instance at InstanceName; one that is not there is a TCimFailure.
boost::shared_ptr<ICIMInstance> FindAskedInstance(const TCall& call);

}  // namespace NZELVYR20
