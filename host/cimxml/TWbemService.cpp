#include "TWbemService.h"

#include <exception>
#include <utility>

#include "MakeInterop.h"
#include "PercentText.h"
#include "RunCall.h"
#include "TCimFailure.h"
#include "TEnumerations.h"
#include "TMessage.h"
#include "TNamespaces.h"
#include "TRefusal.h"
#include "TScopedSilence.h"
#include "TXmlWriter.h"
#include "WriteAnswer.h"

namespace NZELVYR20 {

struct TWbemService::TState {
  TNamespaces namespaces;
  TEnumerations enumerations;
};

namespace {

/// Takes the answer to a message back and makes it an error.
void ReplaceAnswer(const TMessage& message, const TCimFailure& failure, IAnswerSink& sink) {
  sink.Restart();
  TXmlWriter xml(sink);
  WriteFailure(xml, message, failure);
}

void AnswerMessage(const TMessage& message, const TNamespaces& namespaces,
                   TEnumerations& enumerations, IAnswerSink& sink) {
  try {
    TXmlWriter xml(sink);
    RunCall(message, namespaces, enumerations, xml);
  } catch (const TCimFailure& failure) {
    ReplaceAnswer(message, failure, sink);
  } catch (const TAnswerTooLarge&) {
    ReplaceAnswer(message, {ECimStatus::kServerLimitsExceeded, "the answer is too large"}, sink);
  } catch (const std::exception& failure) {
    ReplaceAnswer(message, {ECimStatus::kFailed, failure.what()}, sink);
  }
}

}  // namespace

TWbemService::TWbemService(boost::shared_ptr<ICIMNamespace> cimv2, TWbemLimits limits)
    : state_(new TState{{}, TEnumerations(std::move(limits))}) {
  const auto interop = MakeInterop(*cimv2, {"root/cimv2", "interop"});
  state_->namespaces.Add("root/cimv2", std::move(cimv2));
  for (const char* name : {"interop", "root/interop"}) state_->namespaces.Add(name, interop);
}

TWbemService::~TWbemService() = default;

TCimXmlReply TWbemService::Answer(const TCimXmlRequest& request, IAnswerSink& sink) {
  const TScopedSilence silence;
  try {
    const TMessage message(request);
    AnswerMessage(message, state_->namespaces, state_->enumerations, sink);
    return {};
  } catch (const TRefusal& refusal) {
    return {refusal.GetStatus(), refusal.GetCimError(), EncodePercent(refusal.what())};
  }
}

}  // namespace NZELVYR20
