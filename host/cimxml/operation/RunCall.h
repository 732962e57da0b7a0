#pragma once

#include "TEnumerations.h"
#include "TMessage.h"
#include "TNamespaces.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Does what a message calls and writes the answer. A TCimFailure in place of a result comes before
/// anything is written.
void RunCall(const TMessage& message, const TNamespaces& namespaces, TEnumerations& enumerations,
             TXmlWriter& xml);

}  // namespace NZELVYR20
