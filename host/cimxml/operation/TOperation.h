#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "TArguments.h"
#include "TElementWriter.h"
#include "TEnumerations.h"
#include "TPathReader.h"
#include "TPathWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// What an operation works on.
struct TCall {
  const TArguments& arguments;
  const TPathPlace& place;
  const TPathReader& paths;     ///< of that place
  TEnumerations& enumerations;  ///< those that clients have opened
};

/// Writes a part of an answer; what it writes was found before, so that it does not fail.
using TWriteResult = std::function<void(TXmlWriter& xml, TElementWriter& elements)>;

/// What an operation found.
struct TResult {
  TWriteResult returned;    ///< the content of IRETURNVALUE; empty: there is no such element
  TWriteResult parameters;  ///< the PARAMVALUEs after it; empty: there are none
};

/// An operation: a row of the table by which calls are checked and run.
struct TOperation {
  const char* name;
  std::vector<TParameter> parameters;
  /// Throws a TCimFailure in place of a result.
  TResult (*run)(const TCall& call);
};

/// The result that consists of those elements, each written by `write(elements, element)`.
template <class TElement, class TWrite>
TResult ResultOf(std::vector<TElement> found, const TWrite& write) {
  return {[found = std::move(found), write](TXmlWriter&, TElementWriter& elements) {
            for (const TElement& element : found) write(elements, *element);
          },
          {}};
}

}  // namespace NZELVYR20
