#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// One thing that a collector could not read, and why; collecting went on without it.
struct TCollectorNote {
  std::string area;  ///< what was being collected, such as "network ports"
  std::string what;  ///< the file, directory or call
  std::string why;   ///< such as "No such file or directory"

  /// All of it, in that order.
  std::string ToString() const { return area + ": " + what + ": " + why; }
};

/// What is collected only where it is asked for, since it is much.
struct TExtraAreas {
  bool processes = false;  ///< what runs
  bool packages = false;   ///< what is installed
};

/// Fills a namespace with the data of one machine: this one, or a saved tree of its files.
class TMachineCollector {
 public:
  /// `root` stands before every path that is read; "/" is this machine.
  explicit TMachineCollector(std::string root = "/", TExtraAreas extras = {});

  /// Reads the machine and adds what it finds as instances, of classes that the namespace has to
  /// know (schema/vyr.mof). What cannot be read is no failure: it becomes a note.
  std::vector<TCollectorNote> Collect(const boost::shared_ptr<ICIMNamespace>& nameSpace) const;

 private:
  std::string root_;
  TExtraAreas extras_;
};

}  // namespace NZELVYR20
