#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "TCIMReference.h"
#include "TFuzzCheck.h"
#include "TFuzzNamespace.h"
#include "TVYRException.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using NZELVYR20::ICIMNamespace;
  using NZELVYR20::TCIMReference;
  static const boost::shared_ptr<ICIMNamespace> nameSpace = NZELVYR20::TFuzzNamespace::Make();
  try {
    const TCIMReference read = TCIMReference::Parse(std::string(bytes, bytes + size), nameSpace);
    const TCIMReference again = TCIMReference::Parse(read.ToString(), nameSpace);
    NZELVYR20::Require(again.GetPath() == read.GetPath(), "a path reads back");
  } catch (const std::invalid_argument&) {
    return 0;
  } catch (const NZELVYR20::TVYRException&) {
    return 0;
  }
  return 0;
}
