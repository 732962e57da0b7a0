#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// A value that a key of an instance shall have.
struct TGivenKey {
  std::string name;  ///< empty for whichever key tells the instance from others
  std::string value;
};

/// One way to read a short path.
struct TShortPath {
  boost::shared_ptr<ICIMClass> cimClass;  ///< empty for all classes
  std::vector<TGivenKey> keys;
};

/// Reads short paths: CIM_LogicalDisk:sda, CIM_EthernetPort.DeviceID=eth0, CIM_OperatingSystem and
/// eth0. Values may stand in quotes, as in full paths, and need not: what is bare ends where the
/// next key begins.
class TShortPathReader {
 public:
  explicit TShortPathReader(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// With a class where the text begins with the name of one; else, and after that, as a mere
  /// value.
  std::vector<TShortPath> Read(const std::string& text) const;

  /// The class with whose name the text begins, up to a colon, a full stop or the end; or none.
  boost::shared_ptr<ICIMClass> FindClass(const std::string& text) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
