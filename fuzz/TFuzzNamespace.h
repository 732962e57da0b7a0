#pragma once

#include <dlfcn.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICIMQualifierDecl.h"
#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TFuzzCheck.h"
#include "TMofLoader.h"
#include "TRootObject.h"

namespace NZELVYR20 {

/// Namespaces of the plug-in.
class TFuzzNamespace {
 public:
  TFuzzNamespace() = delete;

  static boost::shared_ptr<ICIMNamespace> MakeEmpty() {
    static void* const plugin = dlopen(INMEM_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    Require(plugin != nullptr, "the plug-in can be loaded");
    TRootObject::SetCoreLogger(boost::make_shared<TSilentLogger>());
    return TRootObject::GetNamespaceProviderManager()
        ->FindNamespaceProvider("inmem")
        ->AllocateNamespace({}, true);
  }

  /// One with the program's schema in it.
  static boost::shared_ptr<ICIMNamespace> Make() {
    boost::shared_ptr<ICIMNamespace> made = MakeEmpty();
    TMofLoader loader(made, {},
                      [](const std::string& message) { Require(false, message.c_str()); });
    loader.Read(VYR_SCHEMA_DIR "/vyr.mof");
    loader.Enter();
    return made;
  }

  /// Declares a property of a class that is being made, with qualifiers on it.
  static void AddProperty(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
                          const TCIMValue& value,
                          const std::vector<std::pair<const char*, TCIMValue>>& qualifiers) {
    const boost::shared_ptr<ICIMPropertyDecl> made =
        cimClass->AllocatePropertyDecl(name, value, {});
    for (const auto& [qualifier, qualifierValue] : qualifiers) {
      made->AllocateQualifier(cimClass->GetNamespace({})->GetQualifierDecl(qualifier, {}),
                              qualifierValue, {})
          ->AddToClassOrProperty({});
    }
    made->AddToClass({});
  }

 private:
  /// Most inputs are wrong, and the repository says so each time.
  class TSilentLogger : public ICoreLogger {
   public:
    void Log(int, const std::string&) override {}
  };
};

}  // namespace NZELVYR20
