#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "IAnswerSink.h"
#include "TCimXmlRequest.h"
#include "TFuzzCheck.h"
#include "TFuzzNamespace.h"
#include "TMofLoader.h"
#include "TWbemService.h"

namespace NZELVYR20 {
namespace {

struct TKeepingSink : IAnswerSink {
  void Write(std::string_view piece) override { text += piece; }
  void Restart() override { text.clear(); }

  std::string text;
};

constexpr const char* kMachine = R"(
instance of CIM_ComputerSystem as $box { CreationClassName = "CIM_ComputerSystem"; Name = "box"; };
instance of CIM_Processor as $cpu { SystemCreationClassName = "CIM_ComputerSystem";
  SystemName = "box"; CreationClassName = "CIM_Processor"; DeviceID = "<0\n"; };
instance of CIM_SystemDevice { GroupComponent = $box; PartComponent = $cpu; };
)";

boost::shared_ptr<ICIMNamespace> MakeMachine() {
  boost::shared_ptr<ICIMNamespace> made = TFuzzNamespace::Make();
  TMofLoader loader(made, {}, [](const std::string& message) { Require(false, message.c_str()); });
  loader.ReadText("machine", kMachine);
  loader.Enter();
  return made;
}

/// Takes the first line off the input.
std::string TakeLine(std::string& input) {
  const std::size_t size = input.find('\n');
  std::string line = input.substr(0, size);
  input.erase(0, size == std::string::npos ? size : size + 1);
  return line;
}

/// The input is CIMMethod and CIMObject, each on a line, and then the body.
TCimXmlRequest MakeRequest(std::string input) {
  TCimXmlRequest request;
  request.host = "localhost";
  request.contentType = "application/xml";
  request.operation = "MethodCall";
  request.method = TakeLine(input);
  request.object = TakeLine(input);
  request.body = std::move(input);
  return request;
}

}  // namespace
}  // namespace NZELVYR20

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using NZELVYR20::Require;
  static NZELVYR20::TWbemService service(NZELVYR20::MakeMachine(), {});
  NZELVYR20::TKeepingSink sink;
  const NZELVYR20::TCimXmlRequest request =
      NZELVYR20::MakeRequest(std::string(bytes, bytes + size));
  const int status = service.Answer(request, sink).status;
  Require(status == 200 || status == 400 || status == 501, "the status is one of these");
  Require((status == 200) == !sink.text.empty(), "there is a body where it is a success");
  pugi::xml_document answer;
  const bool isRead = answer.load_buffer(sink.text.data(), sink.text.size());
  Require(status != 200 || isRead, "an answer is XML");
  return 0;
}
