#pragma once

#include <optional>
#include <string>
#include <vector>

#include "TWriteText.h"

namespace NZELVYR20 {

/// Writes CSV by RFC 4180: fields with a comma, a quote or a line end stand in quotes, and each
/// record ends with CR LF. Every other byte stays what it is.
class TCsvWriter {
 public:
  /// A field; one without a value is empty, while an empty text is a pair of quotes.
  using TField = std::optional<std::string>;

  explicit TCsvWriter(TWriteText write);

  /// A record. A single field without a value is a pair of quotes, too: many readers pass over
  /// empty lines.
  void Add(const std::vector<TField>& fields);

 private:
  TWriteText write_;
};

}  // namespace NZELVYR20
