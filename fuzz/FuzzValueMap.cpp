#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "TCIMValue.h"
#include "TFuzzNamespace.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

TCIMValue SplitLines(const std::string& text) {
  std::vector<TCIMValue> lines;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return TCIMValue::Array(TType::kString, lines);
}

/// Shows a number and a text through a map whose entries are the lines of the input.
void Show(const TCIMValue& number, const std::string& input) {
  static const boost::shared_ptr<ICIMNamespace> nameSpace = TFuzzNamespace::Make();
  const TCIMValue lines = SplitLines(input);
  const boost::shared_ptr<ICIMClass> made = nameSpace->AllocateClass("Fuzzed", {}, {});
  TFuzzNamespace::AddProperty(made, "Number", number, {{"ValueMap", lines}, {"Values", lines}});
  TFuzzNamespace::AddProperty(made, "Text", input, {{"ValueMap", lines}, {"Values", lines}});
  const boost::shared_ptr<ICIMInstance> instance = made->AllocateInstance({});
  const boost::shared_ptr<ICIMProperty> property = instance->GetProperty("Number", {});
  property->SetValue(number, {});
  Require(!property->ToString().empty() || input.find("\n\n") != std::string::npos ||
              input.empty() || input.front() == '\n' || input.back() == '\n',
          "only an empty entry shows nothing");
  const boost::shared_ptr<ICIMProperty> text = instance->GetProperty("Text", {});
  text->SetValue(input, {});
  text->ToString();
}

}  // namespace
}  // namespace NZELVYR20

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using NZELVYR20::TCIMValue;
  if (size < 2) return 0;
  const auto code = static_cast<std::int16_t>(bytes[0] * 256 + bytes[1]);
  const std::string input(bytes + 2, bytes + size);
  NZELVYR20::Show(TCIMValue(code), input);
  NZELVYR20::Show(TCIMValue(static_cast<std::uint64_t>(code)), input);
  return 0;
}
