#pragma once

#include <boost/shared_ptr.hpp>
#include <memory>

#include "IAnswerSink.h"
#include "ICIMNamespace.h"
#include "TCimXmlRequest.h"
#include "TWbemLimits.h"

namespace NZELVYR20 {

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
