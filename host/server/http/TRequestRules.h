#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "THttpHead.h"

namespace NZELVYR20 {

/// An answer that has no body.
struct THttpRefusal {
  int status;
  std::string header;  ///< one more line, without its end; empty: none

  /// As it is sent; nothing else is on that connection.
  std::string ToString() const;
};

/// What a request must be like before its body is read.
struct TRequestRules {
  std::size_t bodyBytes;
  /// Only by a name of this machine that no name server can give to another: else a page from
  /// elsewhere could ask, by a name of its own that leads here.
  bool isLocalOnly;
  /// Whether the header Authorization lets somebody in; empty: everybody may ask.
  std::function<bool(const std::string& authorization)> admits;

  /// Why a request is refused; none where it is not.
  std::optional<THttpRefusal> Check(const THttpHead& head) const;
};

/// Whether the connection stays open after the answer.
bool IsKept(const THttpHead& head);

/// The head as it is passed on: what the library would act upon by itself (ranges, compression) is
/// not in it, and nothing in it can be read in two ways.
std::string WritePlainHead(const THttpHead& head, bool isKept);

/// The path to which the protocol's requests are sent.
inline const std::string kProtocolPath = "/cimom";

}  // namespace NZELVYR20
