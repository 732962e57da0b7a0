#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "EFormat.h"
#include "TCIMValue.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// One value of a row.
struct TCell {
  TCIMValue value;                  ///< as it is stored
  std::optional<std::string> text;  ///< as people read it; none: as it is stored
};

/// The values of a row, as many as there are columns.
using TRow = std::vector<TCell>;

/// Takes rows of values and writes them in one of the formats. A table takes all rows before it
/// writes, the others write row by row.
///
/// JSON has the stored values: an object for each row, whose members are the columns. Tables and
/// CSV have the texts. Where a cell has none, CSV has date-times in the CIM text form, and arrays
/// as JSON has them, so that they can be read back.
class TRowWriter {
 public:
  virtual ~TRowWriter() = default;

  virtual void Add(const TRow& row) = 0;
  /// To be called once after the last row.
  virtual void Finish() = 0;

  /// For every format but MOF. The output goes to `write`; `terminal` says who reads it.
  static std::unique_ptr<TRowWriter> Make(EFormat format, const std::vector<std::string>& columns,
                                          const TTerminal& terminal, const TWriteText& write);
};

}  // namespace NZELVYR20
