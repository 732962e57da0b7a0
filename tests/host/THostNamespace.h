#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TMachineCollector.h"

namespace NZELVYR20 {

/// A namespace of the in-memory plug-in with the collectors' schema in it, and what a machine
/// adds. Messages of the repository are counted, so that none goes unnoticed.
class THostNamespace {
 public:
  /// `root` is that of the machine to collect; empty for the schema alone.
  explicit THostNamespace(const std::string& root);
  THostNamespace(const THostNamespace&) = delete;
  THostNamespace& operator=(const THostNamespace&) = delete;
  ~THostNamespace();

  const boost::shared_ptr<ICIMNamespace>& Get() const { return namespace_; }
  const std::vector<std::string>& GetMessages() const;
  const std::vector<TCollectorNote>& GetNotes() const { return notes_; }
  /// The "what" of each note.
  std::vector<std::string> GetNoted() const;

  /// The paths of the instances of a class and of its subclasses, as people read them.
  std::vector<std::string> ListPaths(const std::string& className) const;
  std::size_t Count(const std::string& className) const;

  /// The instance of that path; fails the test when there is none.
  boost::shared_ptr<ICIMInstance> Find(const std::string& path) const;
  /// A property as people read it; "<null>" for a null that nothing stands for.
  std::string Show(const std::string& path, const std::string& property) const;

 private:
  boost::shared_ptr<class TMessageList> messages_;
  boost::shared_ptr<ICIMNamespace> namespace_;
  std::vector<TCollectorNote> notes_;
};

}  // namespace NZELVYR20
