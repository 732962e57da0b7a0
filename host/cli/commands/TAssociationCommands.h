#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"
#include "ListElements.h"
#include "TElementFinder.h"

namespace NZELVYR20 {

/// From which instance to follow associations, and which; empty texts mean no restriction.
struct TTraversal {
  std::string path;
  std::string assocClass;
  std::string resultClass;
  std::string role;
  std::string resultRole;
};

/// The commands that follow associations. Each returns instances, each once and in order of
/// first appearance; what the user names and the namespace lacks is a
/// TCommandError. A role is the end at which an instance stands; the repository takes roles without
/// a look at where they lead, and finds one end at most, so it is asked for all associations of the
/// instance.
class TAssociationCommands {
 public:
  explicit TAssociationCommands(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// The instances at the other ends, of which an association may have several.
  TInstanceList Associators(const TTraversal& traversal) const;

  /// The association instances themselves.
  TInstanceList References(const TTraversal& traversal) const;

 private:
  std::string ResolveAssociation(const std::string& className) const;
  void CheckRole(const std::string& role, const std::string& className) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  TElementFinder finder_;
};

}  // namespace NZELVYR20
