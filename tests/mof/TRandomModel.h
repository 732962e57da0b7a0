#pragma once

#include <boost/shared_ptr.hpp>
#include <random>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// Fills a namespace with whatever can be declared, the same for the same seed: qualifiers of every
/// type, scope and flavor, hierarchies with overrides, associations, methods, defaults of every
/// type, texts that are hard to write, and instances. It stays within what MOF can say, and hands
/// qualifiers down to overriding declarations as their flavor demands.
class TRandomModel {
 public:
  TRandomModel(boost::shared_ptr<ICIMNamespace> nameSpace, unsigned seed);

 private:
  using TType = TCIMValue::TCIMType;

  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
  bool Chance(unsigned percent) { return Below(100) < percent; }
  template <class TElement>
  const TElement& Pick(const std::vector<TElement>& elements) {
    return elements[Below(static_cast<unsigned>(elements.size()))];
  }

  std::string AnyText();
  TType AnyType();
  TCIMValue AnyScalar(TType type);
  /// Of that type, sometimes null.
  TCIMValue AnyValue(TType type);

  void DeclareQualifiers();
  void Attach(ICIMNamedElement& element, const std::string& name, const TCIMValue& value);
  void AttachAny(ICIMNamedElement& element);
  void DeclareClass();
  void DeclareProperty(ICIMClass& cimClass, const TCIMValue& defaultValue, bool isKey);
  void OverrideSome(ICIMClass& cimClass);
  void DeclareMethod(ICIMClass& cimClass);
  void AddInstance(const boost::shared_ptr<ICIMClass>& cimClass);

  boost::shared_ptr<ICIMNamespace> namespace_;
  std::mt19937 random_;
  unsigned nextNumber_ = 0;
  std::vector<std::string> freeQualifiers_;
  std::vector<boost::shared_ptr<ICIMClass>> classes_;
  std::vector<boost::shared_ptr<ICIMInstance>> instances_;
};

}  // namespace NZELVYR20
