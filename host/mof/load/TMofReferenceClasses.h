#pragma once

#include <string>
#include <unordered_map>

#include "ICIMMethodDecl.h"

namespace NZELVYR20 {

/// To which classes the references of methods' results and parameters point. The repository keeps
/// only that they are references; whoever loads MOF and writes it again keeps this beside it.
class TMofReferenceClasses {
 public:
  /// Without a parameter it is the result.
  void Set(const ICIMMethodDecl& method, const std::string& parameter,
           const std::string& className);
  /// The word of MOF for the class, which is "object" where none is known that is still there.
  std::string Get(const ICIMMethodDecl& method, const std::string& parameter) const;

 private:
  std::unordered_map<std::string, std::string> names_;
};

}  // namespace NZELVYR20
