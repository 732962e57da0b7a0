#include "TRootObject.h"

#include <boost/make_shared.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <iostream>

#include "TNamespaceProviderManager.h"
#include "TStreamLogger.h"

namespace NZELVYR20 {

namespace {

struct TServices {
  boost::shared_ptr<TStreamLogger> ownLogger = boost::make_shared<TStreamLogger>(std::cerr);
  boost::shared_ptr<ICoreLogger> logger = ownLogger;
  boost::shared_ptr<INamespaceProviderManager> providers =
      boost::make_shared<TNamespaceProviderManager>();
};

// Made on first use, since plug-ins register from their static initialisers, and never destroyed.
// Whether this library, a plug-in or the host ends first is open, and so does not matter: what ends
// late still finds logger and manager; and since the manager never lets go of a provider at the
// end, this library never runs code of a plug-in that has ended already. A plug-in that drops its
// own pointer to its provider does not destroy it, the manager's pointer remains. The static
// pointer below keeps everything reachable, so that leak checkers have nothing to report.
TServices& Services() {
  static auto* const kServices = new TServices;
  return *kServices;
}

}  // namespace

boost::shared_ptr<ICoreLogger> TRootObject::GetCoreLogger() {
  return boost::atomic_load(&Services().logger);
}

void TRootObject::SetCoreLogger(const boost::shared_ptr<ICoreLogger>& logger) {
  TServices& services = Services();
  boost::atomic_store(&services.logger,
                      logger ? logger : boost::shared_ptr<ICoreLogger>(services.ownLogger));
}

void TRootObject::SetLogThreshold(int level) { Services().ownLogger->SetThreshold(level); }

boost::shared_ptr<INamespaceProviderManager> TRootObject::GetNamespaceProviderManager() {
  return Services().providers;
}

}  // namespace NZELVYR20
