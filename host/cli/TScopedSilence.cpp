#include "TScopedSilence.h"

#include <boost/make_shared.hpp>
#include <string>

#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

class TSilentLogger : public ICoreLogger {
 public:
  void Log(int /*level*/, const std::string& /*message*/) override {}
};

}  // namespace

TScopedSilence::TScopedSilence() : earlierLogger_(TRootObject::GetCoreLogger()) {
  TRootObject::SetCoreLogger(boost::make_shared<TSilentLogger>());
}

TScopedSilence::~TScopedSilence() { TRootObject::SetCoreLogger(earlierLogger_); }

}  // namespace NZELVYR20
