#include "TClassRows.h"

namespace NZELVYR20 {

TClassRows::TClassRows(std::size_t count) {
  for (std::size_t number = 0; number < count; ++number) {
    const std::string suffix = std::to_string(number);
    TClass made{"Bench_Node" + suffix, number == 0 ? 0 : (number - 1) / kFanOut, {}, {}};
    for (std::size_t own = 0; own < kProperties; ++own) {
      made.properties.push_back("Property" + std::to_string(own) + "Of" + suffix);
    }
    for (std::size_t own = 0; own < kInstances; ++own) {
      made.keys.push_back("instance" + std::to_string(own) + "of" + suffix);
    }
    classes.push_back(made);
  }
}

}  // namespace NZELVYR20
