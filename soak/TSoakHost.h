#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TWatch.h"

namespace NZELVYR20 {

/// A host that keeps one namespace for years and polls: each round does once what such a host does
/// again and again. After the first few rounds none may need more memory than the one before.
class TSoakHost {
 public:
  /// `root` is that of the machine to collect.
  explicit TSoakHost(std::string root);

  /// Throws std::logic_error when an answer is not what it should be.
  void Poll();

 private:
  static constexpr unsigned kPollsForEachWatch = 10;

  void Refresh();
  void AllocateClassesAgain();
  void DeclareAgain();
  void ReadUndeclared();
  void ReplaceInstances();
  void Fail();
  void Watch();
  void CollectWithNews();

  std::vector<boost::shared_ptr<ICIMInstance>> ListInstances(const std::string& className);

  const std::string root_;
  const boost::shared_ptr<ICIMNamespace> space_;
  boost::shared_ptr<ICIMClass> port_;
  boost::shared_ptr<ICIMClass> link_;
  const boost::shared_ptr<ICIMNamespace> watched_;
  const boost::shared_ptr<ICIMNamespace> present_;
  TWatch watch_;
  unsigned round_ = 0;
  unsigned polls_ = 0;
};

}  // namespace NZELVYR20
