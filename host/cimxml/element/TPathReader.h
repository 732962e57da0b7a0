#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "TCIMReference.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// What a client means by a class or an instance.
struct TObjectName {
  boost::shared_ptr<ICIMClass> cimClass;
  std::optional<TCIMReference> instance;  ///< its path; nothing where the class itself is meant
};

/// All text of an element, whether it stands in sections of CDATA or not. The document was read
/// with pugi::parse_ws_pcdata_single at least, since texts of nothing but blanks count.
std::string ReadText(const pugi::xml_node& node);

/// Reads object paths in all forms of the protocol. Hosts are ignored. Failures are TCimFailure:
/// of an invalid class where that is unknown; not found where a path is of another namespace; else
/// of an invalid parameter, as where a key is missing, unknown, there twice or no value of its
/// type.
class TPathReader {
 public:
  /// Whether a name such as "root/cimv2" is that of the namespace.
  using TIsName = std::function<bool(const std::string& name)>;

  TPathReader(boost::shared_ptr<ICIMNamespace> nameSpace, TIsName isName);

  /// CLASSNAME, LOCALCLASSPATH or CLASSPATH.
  boost::shared_ptr<ICIMClass> ReadClass(const pugi::xml_node& node) const;
  /// INSTANCENAME, LOCALINSTANCEPATH, INSTANCEPATH, or one of these in VALUE.REFERENCE. Values are
  /// of the types that keys are declared with, whatever the client takes them for.
  TCIMReference ReadInstance(const pugi::xml_node& node) const;
  /// Either.
  TObjectName ReadObject(const pugi::xml_node& node) const;

 private:
  std::string PathText(const pugi::xml_node& node) const;
  std::string InstanceNameText(const pugi::xml_node& name) const;
  std::string KeyText(const ICIMClass& cimClass, const std::string& name,
                      const pugi::xml_node& value) const;
  static TCIMValue::TCIMType FindKeyType(const ICIMClass& cimClass, const std::string& name);
  void CheckNamespace(const pugi::xml_node& path) const;
  boost::shared_ptr<ICIMClass> FindClass(const std::string& name) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  TIsName isName_;
};

}  // namespace NZELVYR20
