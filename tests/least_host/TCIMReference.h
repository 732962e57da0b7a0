#pragma once

#include "TCIMContext.h"

namespace NZELVYR20 {

class ICIMElement;
class ICIMNamespace;

class TCIMReference {
 public:
  TCIMReference(const boost::shared_ptr<ICIMNamespace>& nameSpace, const TCIMContext& context);

  void SetClass(const boost::shared_ptr<ICIMClass>& cimClass);
  void AddKeyValue(const std::string& name, const TCIMValue& value);
  std::string GetClassName() const;
  const std::string& GetPath() const;
  boost::shared_ptr<ICIMElement> GetCIMElement(bool wantsClass) const;
};

}  // namespace NZELVYR20
