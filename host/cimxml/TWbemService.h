#pragma once

#include <boost/shared_ptr.hpp>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "IAnswerSink.h"
#include "ICIMNamespace.h"
#include "TCimXmlRequest.h"

namespace NZELVYR20 {

/// What bounds a service.
struct TWbemLimits {
  std::size_t openEnumerations = 100;
  std::chrono::seconds enumerationTimeout{60};  ///< unless the client asks for another
  std::chrono::seconds longestTimeout{600};     ///< that a client may ask for
};

/// Answers requests of CIM-XML from namespaces, without any network: text in, text out. It reads
/// alone. It is for one thread at a time, as the repository is.
class TWbemService {
 public:
  /// `cimv2` becomes root/cimv2; interop is made here.
  TWbemService(boost::shared_ptr<ICIMNamespace> cimv2, TWbemLimits limits);
  ~TWbemService();
  TWbemService(const TWbemService&) = delete;
  TWbemService& operator=(const TWbemService&) = delete;

  /// Answers a request; writes the body only where the reply's status is 200.
  TCimXmlReply Answer(const TCimXmlRequest& request, IAnswerSink& sink);

 private:
  struct TState;
  std::unique_ptr<TState> state_;
};

}  // namespace NZELVYR20
