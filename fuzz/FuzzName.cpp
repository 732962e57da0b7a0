#include <cstddef>
#include <cstdint>
#include <string>

#include "ICIMClass.h"
#include "ICIMPropertyDecl.h"
#include "TFuzzCheck.h"
#include "TFuzzNamespace.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// A name that the repository takes is one under which it finds the class again.
void Declare(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& name) {
  boost::shared_ptr<ICIMClass> made;
  try {
    made = nameSpace->AllocateClass(name, {}, {});
    TFuzzNamespace::AddProperty(made, name, TCIMValue(1), {{"Key", true}});
    made->AddToNamespace({});
  } catch (const TVYRException&) {
    return;
  }
  Require(nameSpace->GetClass(name, {}) == made, "a class is found under its name");
  Require(made->GetPropertyDecl(name, {}) != nullptr, "a property is found under its name");
  made->RemoveFromNamespace({});
}

}  // namespace
}  // namespace NZELVYR20

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const boost::shared_ptr<NZELVYR20::ICIMNamespace> nameSpace =
      NZELVYR20::TFuzzNamespace::Make();
  const std::string name(bytes, bytes + size);
  try {
    nameSpace->GetClass(name, {});
  } catch (const NZELVYR20::TVYRException&) {
    NZELVYR20::Declare(nameSpace, name);
  }
  return 0;
}
