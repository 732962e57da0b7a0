#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"
#include "ListClasses.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// The commands that print classes. Each gives its whole output; a class that the namespace
/// lacks is a TCommandError. Where a class name may be empty, that means all classes.
class TClassCommands {
 public:
  explicit TClassCommands(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// A class and its descendants in order of their names.
  std::string List(const std::string& className) const;

  /// Writes the same classes as a drawing of their hierarchy.
  void Tree(const std::string& className, const TTerminal& terminal, const TWriteText& write) const;

  /// One class with its qualifiers, properties and methods.
  std::string Describe(const std::string& className) const;

 private:
  TClassList FindStart(const std::string& className) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20
