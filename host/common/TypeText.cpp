#include "TypeText.h"

#include <sstream>

namespace NZELVYR20 {

std::string TypeText(TCIMValue::TCIMType type) {
  std::ostringstream text;
  text << type;
  return text.str();
}

}  // namespace NZELVYR20
