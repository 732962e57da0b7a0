#include "TPathForm.h"

#include <cstdint>

namespace NZELVYR20 {

void TPathForm::AddTo(CLI::App& command) {
  CLI::Option* const option = command.add_flag_function(
      "--short,!--no-short", [this](std::int64_t given) { isShort_ = given > 0; },
      "Short paths in the order in which people count, or full ones (default: short ones on a "
      "terminal)");
  option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

}  // namespace NZELVYR20
