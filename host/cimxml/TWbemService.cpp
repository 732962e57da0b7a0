#include "TWbemService.h"

#include <utility>

namespace NZELVYR20 {

struct TWbemService::TState {
  boost::shared_ptr<ICIMNamespace> cimv2;
  TWbemLimits limits;
};

TWbemService::TWbemService(boost::shared_ptr<ICIMNamespace> cimv2, TWbemLimits limits)
    : state_(new TState{std::move(cimv2), limits}) {}

TWbemService::~TWbemService() = default;

TCimXmlReply TWbemService::Answer(const TCimXmlRequest& /*request*/, IAnswerSink& /*sink*/) {
  return {501, {}, {}};
}

}  // namespace NZELVYR20
