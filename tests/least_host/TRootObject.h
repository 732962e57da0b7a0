#pragma once

#include <boost/shared_ptr.hpp>

namespace NZELVYR20 {

class ICoreLogger;
class INamespaceProviderManager;

class TRootObject {
 public:
  static boost::shared_ptr<ICoreLogger> GetCoreLogger();
  static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NZELVYR20
