#pragma once

#include <boost/algorithm/string/split.hpp>

#include "TWorld.h"

namespace NZELVYR20 {

inline TPool Pool(const std::string& names) {
  TPool pool;
  return boost::algorithm::split(pool, names, [](char c) { return c == '|'; });
}
inline const TPool kClasses = Pool(
    "CIM_Foo|CIM_Bar|CIM_Qux|Baz|My_ZELSG_PhysicalNetworkPort2|CIM_L|CIM_M|CIM_N|cim_foo|BAZ||1bad|"
    "<root>|<ROOT>|my_zelsg_physicalnetworkport2");
inline const TPool kProperties = Pool(
    "Name|Antecedent|Dependent|NAME|dependent|Speed|speed|PortType|linkporttype|LinkPortTypeInfo|"
    "speedDuplex|XspeedDuplex|SpeedDuplex|HealthState|healthstate|XHealthStateY|Description|"
    "MyDescription|description|DateTimeOfCollection|9x|a-b||HealthStateDescription|"
    "CommunicationStatus|DetailedStatus|OperatingStatus|PrimaryStatus");
inline const TPool kMethods = Pool("Reset|RESET|Stop|PortType|a b");
inline const TPool kQualifiers =
    Pool("KEY|OVERRIDE|ASSOCIATION|ABSTRACT|NULLDISPLAY|BASE|Version|key|Override|version|9");

inline const std::vector<TCIMValue>& GetConstants() {
  static const std::vector<TCIMValue> constants = {true,
                                                   "a",
                                                   "b",
                                                   static_cast<unsigned short>(0),
                                                   static_cast<unsigned short>(2),
                                                   TCIMValue::Null(TType::kString),
                                                   TCIMValue::Null(TType::kUInt16),
                                                   TCIMValue(),
                                                   false,
                                                   TCIMValue::Null(TType::kBoolean),
                                                   static_cast<unsigned char>(16),
                                                   1536U,
                                                   -5,
                                                   1ULL << 60U,
                                                   "quote\"d",
                                                   "",
                                                   TCIMValue::Array(TType::kString, {"a", "b"}),
                                                   TCIMValue::Array(TType::kBoolean, {true, false}),
                                                   TCIMValue::Null(TType::kUInt16Array),
                                                   TCIMDateTime(),
                                                   TCIMValue::Null(TType::kDateTime),
                                                   TCIMValue::Null(TType::kReference)};
  return constants;
}
/// Of 32 values; then come null references to classes, references to instances in two forms, one in
/// an array, and paths.
constexpr int kConstants = 22;
constexpr int kReference = 24;

inline TCIMValue TWorld::Value() const {
  const int at = value % 32;
  const int from = value / 32;
  if (at < kReference || at > 27) return Default();
  const TCIMReference path = i(from)->GetReference({});
  Require(path.GetPath().size() <= 200);  // escaping doubles with every level of a key's reference
  return at < 27 ? TCIMValue(path) : TCIMValue(path, path.GetClass()->GetSuperClass({}));
}

/// The keys of an instance's path may hold any class.
inline TCIMValue TWorld::Default() const {
  const int at = value % 32;
  const int from = value / 32;
  if (at < kConstants) return GetConstants()[at];
  Require(at < kReference || at > 27);
  TCIMValue null = TCIMValue::NullReference(c(from));
  if (at == 28) return TCIMValue::Array(TType::kReference, {null});
  if (at < kReference) return null;
  TCIMReference path(n(from / 8), {});  // the class need not be of that namespace
  path.SetClass(c(from));
  path.AddKeyValue("Name", at == 29 ? "a" : "b");
  return path;
}
}  // namespace NZELVYR20
