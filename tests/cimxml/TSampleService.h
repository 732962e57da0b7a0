#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <pugixml.hpp>
#include <string>

#include "IAnswerSink.h"
#include "TAnswerRules.h"
#include "TClientCall.h"
#include "TLoadedMof.h"
#include "TWbemService.h"

namespace NZELVYR20 {

/// Keeps an answer as a text.
struct TTextSink : IAnswerSink {
  void Write(std::string_view piece) override { text += piece; }
  void Restart() override { text.clear(); }

  std::string text;
};

/// A service of a small namespace.
class TSampleService {
 public:
  /// `schema` is the file of the schema before the text.
  explicit TSampleService(const std::string& mof, TWbemLimits limits = {},
                          const char* schema = "/qualifiers.mof") {
    mof_.LoadFile(std::string(VYR_SCHEMA_DIR) + schema).LoadText(mof);
    EXPECT_EQ(mof_.TakeMessages(), "");
    service_ = std::make_unique<TWbemService>(mof_.nameSpace, limits);
  }

  TWbemService& Get() { return *service_; }
  const boost::shared_ptr<ICIMNamespace>& GetNamespace() const { return mof_.nameSpace; }

  /// The status of HTTP and the header CIMError; of an error of CIM "200 CIM" and its code.
  std::string Status(const TCimXmlRequest& request) {
    TTextSink sink;
    const TCimXmlReply reply = service_->Answer(request, sink);
    EXPECT_EQ(reply.status == 200, !sink.text.empty()) << request.body;
    const std::string status = std::to_string(reply.status);
    if (reply.status != 200) return status + (reply.cimError.empty() ? "" : ' ' + reply.cimError);
    const pugi::xml_node response = Read(sink.text).first_child();
    const pugi::xml_node error = response.child("ERROR");
    EXPECT_TRUE(!error ||
                (response.first_child() == response.last_child() && !error.first_child()));
    return error ? status + " CIM " + error.attribute("CODE").value() : status;
  }

  /// What stands in the response.
  pugi::xml_node Ask(const TCimXmlRequest& request) {
    TTextSink sink;
    EXPECT_EQ(service_->Answer(request, sink).status, 200) << request.body;
    return Read(sink.text).first_child();
  }

 private:
  /// SIMPLERSP of an answer, of which everything around that is what every answer has.
  pugi::xml_node Read(const std::string& text) {
    const pugi::xml_parse_result result =
        document_.load_string(text.c_str(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    EXPECT_TRUE(result) << result.description() << '\n' << text;
    EXPECT_EQ(text.find("<?xml "), 0U);
    EXPECT_EQ(rules_.Check(text), "") << text;
    const pugi::xml_node message = document_.child("CIM").child("MESSAGE");
    EXPECT_STRNE(message.attribute("ID").value(), "");
    return message.child("SIMPLERSP");
  }

  const TAnswerRules rules_;
  TLoadedMof mof_;
  std::unique_ptr<TWbemService> service_;
  pugi::xml_document document_;
};

}  // namespace NZELVYR20
