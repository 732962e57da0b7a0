#include "ICIMClass.h"
#include "ICIMElement.h"
#include "ICIMIndicationFilter.h"
#include "ICIMInstance.h"
#include "ICIMMethodDecl.h"
#include "ICIMNamedElement.h"
#include "ICIMNamespace.h"
#include "ICIMParameterDecl.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICIMQualifierDecl.h"
#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "IProvider.h"

// What an interface defines stands here alone: its virtual table and type information then have one
// home, in this library, and casts and handlers on both sides of the library border agree.

namespace NZELVYR20 {

ICIMClass::~ICIMClass() = default;
ICIMElement::~ICIMElement() = default;
ICIMIndicationFilter::~ICIMIndicationFilter() = default;
ICIMInstance::~ICIMInstance() = default;
ICIMMethodDecl::~ICIMMethodDecl() = default;
ICIMNamedElement::~ICIMNamedElement() = default;
ICIMNamespace::~ICIMNamespace() = default;
ICIMParameterDecl::~ICIMParameterDecl() = default;
ICIMProperty::~ICIMProperty() = default;
ICIMPropertyDecl::~ICIMPropertyDecl() = default;
ICIMQualifier::~ICIMQualifier() = default;
ICIMQualifierDecl::~ICIMQualifierDecl() = default;
ICoreLogger::~ICoreLogger() = default;
INamespaceProvider::~INamespaceProvider() = default;
INamespaceProviderManager::~INamespaceProviderManager() = default;
IProvider::~IProvider() = default;

TCIMReference ICIMInstance::BuildPath(TCIMContext context) const { return GetReference(context); }

}  // namespace NZELVYR20
