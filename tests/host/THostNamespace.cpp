#include "THostNamespace.h"

#include <gtest/gtest.h>

#include <boost/algorithm/string/join.hpp>
#include <boost/make_shared.hpp>
#include <sstream>
#include <stdexcept>

#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICoreLogger.h"
#include "PluginNamespace.h"
#include "TMachineCollector.h"
#include "TMofLoader.h"
#include "TPrinter.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

class TFailingLogger : public ICoreLogger {
 public:
  void Log(int, const std::string& message) override { ADD_FAILURE() << message; }
};

boost::shared_ptr<ICIMNamespace> AllocateNamespace() {
  TRootObject::SetCoreLogger(boost::make_shared<TFailingLogger>());
  return AllocatePluginNamespace();
}

void LoadSchema(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  TMofLoader loader(nameSpace, {}, [](const std::string& message) { ADD_FAILURE() << message; });
  loader.Read(VYR_SCHEMA_DIR "/vyr.mof");
  loader.Enter();
}

std::string ShowValue(const ICIMProperty& property) {
  if (!property.IsArray({})) return TPrinter::PropertyText(property);
  return '{' + boost::join(TPrinter::ElementTexts(property), ",") + '}';
}

std::string ShowEnd(const TCIMValue& reference) {
  const auto element = static_cast<TCIMReference>(reference).GetCIMElement(false);
  return boost::dynamic_pointer_cast<ICIMInstance>(element)
      ->GetProperty("ElementName", {})
      ->ToString();
}

}  // namespace

THostNamespace::THostNamespace(const std::string& root, TExtraAreas extras)
    : namespace_(AllocateNamespace()) {
  LoadSchema(namespace_);
  if (root.empty()) return;
  for (const TCollectorNote& note : TMachineCollector(root, extras).Collect(namespace_)) {
    EXPECT_FALSE(note.area.empty() || note.why.empty()) << note.what;
    noted_.push_back(note.what);
  }
}

std::vector<std::string> THostNamespace::ListPaths(const std::string& className) const {
  std::vector<std::string> paths;
  namespace_->GetClass(className, {})
      ->EnumerateInstances(
          [&paths](const boost::shared_ptr<ICIMInstance>& instance) {
            paths.push_back(instance->GetReference({}).ToString());
            return true;
          },
          true, {});
  return paths;
}

boost::shared_ptr<ICIMInstance> THostNamespace::Find(const std::string& path) const {
  boost::shared_ptr<ICIMInstance> instance =
      namespace_->GetInstance(TCIMReference::Parse(path, namespace_), {});
  if (!instance) throw std::runtime_error("no instance " + path);
  return instance;
}

std::string THostNamespace::ShowAll(const std::string& path) const {
  std::string shown;
  Find(path)->EnumerateProperties(
      [&shown](const boost::shared_ptr<ICIMProperty>& property) {
        const auto declaration = property->GetDeclaration({});
        const TCIMValue& value = property->GetValue({});
        bool isKey = false;
        declaration->GetQualifier("Key", isKey, {});
        if (value.IsNull() || (isKey && !value.IsReference())) return true;
        const std::string text = value.IsReference() ? ShowEnd(value) : ShowValue(*property);
        shown += (shown.empty() ? "" : "|") + declaration->GetName({}) + '=' + text;
        return true;
      },
      {});
  return shown;
}

}  // namespace NZELVYR20
