#pragma once

#include <functional>

#include "TCimFailure.h"
#include "TMessage.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes the answer to a message, with that content.
void WriteAnswer(TXmlWriter& xml, const TMessage& message,
                 const std::function<void()>& writeContent);

/// Writes an answer that is an error.
void WriteFailure(TXmlWriter& xml, const TMessage& message, const TCimFailure& failure);

}  // namespace NZELVYR20
