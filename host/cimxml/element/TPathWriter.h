#pragma once

#include <string>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "PathParts.h"
#include "TCIMReference.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Where paths lead.
struct TPathPlace {
  std::string host;           ///< as the client called it, with its port
  std::string namespaceName;  ///< such as "root/cimv2"
  boost::shared_ptr<ICIMNamespace> nameSpace;
};

/// Writes object paths.
class TPathWriter {
 public:
  /// `xml` outlives the object.
  TPathWriter(TXmlWriter& xml, TPathPlace place);

  /// CLASSNAME
  void WriteClassName(const std::string& name);
  /// CLASSPATH
  void WriteClassPath(const std::string& name);
  /// INSTANCENAME
  void WriteInstanceName(const TCIMReference& path);
  /// INSTANCEPATH
  void WriteInstancePath(const TCIMReference& path);
  /// VALUE.REFERENCE with a path that has the namespace and no host
  void WriteReference(const TCIMReference& path);

 private:
  void WriteReference(const std::string& path);
  void WriteInstanceName(const TPathParts& path);
  void WriteKey(const std::string& className, const TPathPart& key);
  void WriteNamespacePath();
  void WriteLocalNamespacePath();
  TCIMValue::TCIMType FindKeyType(const std::string& className, const TPathPart& key) const;

  TXmlWriter& xml_;
  TPathPlace place_;
};

}  // namespace NZELVYR20
