#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "TCIMDateTime.h"
#include "TFuzzCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using NZELVYR20::Require;
  using NZELVYR20::TCIMDateTime;
  try {
    const TCIMDateTime read = TCIMDateTime::FromCIMString(std::string(bytes, bytes + size));
    const std::string text = read.ToCIMString();
    Require(TCIMDateTime::FromCIMString(text) == read, "a date-time reads back");
    Require(!read.ToUIString().empty(), "a date-time can be shown");
  } catch (const std::invalid_argument&) {
    return 0;
  }
  return 0;
}
