#include "TInmemNamespaceProvider.h"

namespace NZELVYR20 {

namespace {

/// Runs when the host loads the plug-in: the registration is the plug-in's only entry point.
[[gnu::constructor]] void InmemInit() { TInmemNamespaceProvider::Initialize(); }

}  // namespace

}  // namespace NZELVYR20
