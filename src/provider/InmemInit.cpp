#include "TInmemNamespaceProvider.h"

namespace NZELVYR20 {

namespace {

/// Runs when the host loads the plug-in: the registration is the plug-in's only entry point. No
/// failure may cross the loader, which would keep its locks: the host then finds no provider.
[[gnu::constructor]] void InmemInit() noexcept {
  try {
    TInmemNamespaceProvider::Initialize();
  } catch (...) {
  }
}

}  // namespace

}  // namespace NZELVYR20
