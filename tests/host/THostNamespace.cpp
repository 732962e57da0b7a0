#include "THostNamespace.h"

#include <dlfcn.h>

#include <boost/make_shared.hpp>
#include <stdexcept>

#include "ICIMProperty.h"
#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TRootObject.h"

namespace NZELVYR20 {

/// A logger that keeps what it is told.
class TMessageList : public ICoreLogger {
 public:
  void Log(int, const std::string& message) override { messages_.push_back(message); }
  const std::vector<std::string>& Get() const { return messages_; }

 private:
  std::vector<std::string> messages_;
};

namespace {

boost::shared_ptr<ICIMNamespace> AllocateNamespace() {
  static void* const library = dlopen(INMEM_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return TRootObject::GetNamespaceProviderManager()
      ->FindNamespaceProvider("inmem")
      ->AllocateNamespace({}, false);
}

}  // namespace

THostNamespace::THostNamespace(const std::string& root)
    : messages_(boost::make_shared<TMessageList>()), namespace_(AllocateNamespace()) {
  TRootObject::SetCoreLogger(messages_);
  TMachineCollector::DefineSchema(namespace_);
  if (!root.empty()) notes_ = TMachineCollector(root).Collect(namespace_);
}

THostNamespace::~THostNamespace() { TRootObject::SetCoreLogger({}); }

const std::vector<std::string>& THostNamespace::GetMessages() const { return messages_->Get(); }

std::vector<std::string> THostNamespace::GetNoted() const {
  std::vector<std::string> noted;
  for (const TCollectorNote& note : notes_) noted.push_back(note.what);
  return noted;
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

std::size_t THostNamespace::Count(const std::string& className) const {
  return ListPaths(className).size();
}

boost::shared_ptr<ICIMInstance> THostNamespace::Find(const std::string& path) const {
  boost::shared_ptr<ICIMInstance> instance =
      namespace_->GetInstance(TCIMReference::Parse(path, namespace_), {});
  if (!instance) throw std::runtime_error("no instance " + path);
  return instance;
}

std::string THostNamespace::Show(const std::string& path, const std::string& property) const {
  const boost::shared_ptr<ICIMProperty> shown = Find(path)->GetProperty(property, {});
  const std::string text = shown->ToString();
  return text.empty() && shown->GetValue({}).IsNull() ? "<null>" : text;
}

}  // namespace NZELVYR20
