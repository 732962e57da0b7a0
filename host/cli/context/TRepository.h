#pragma once

#include <boost/shared_ptr.hpp>
#include <ctime>
#include <utility>
#include <vector>

#include "ICIMNamespace.h"
#include "TInvocation.h"
#include "TMachineCollector.h"
#include "TOrigin.h"
#include "UtcTimeText.h"

namespace NZELVYR20 {

/// A namespace of the plug-in with the schema in it and, on demand, the machine's instances.
class TRepository {
 public:
  /// Loads the plug-in and, unless the namespace is to be empty, the schema. Throws TCommandError.
  explicit TRepository(const THostOptions& options);

  /// Reads the machine; what could not be read is in the notes. Throws TCommandError.
  void Collect();

  const boost::shared_ptr<ICIMNamespace>& GetNamespace() const { return namespace_; }
  const std::vector<TCollectorNote>& GetNotes() const { return notes_; }
  /// The same for whoever tells the user, which is done once.
  std::vector<TCollectorNote> TakeNotes() { return std::exchange(notes_, {}); }
  /// The machine that was collected, or else the first that is there, and when that began.
  TOrigin GetOrigin() const;

 private:
  TMachineCollector collector_;
  boost::shared_ptr<ICIMNamespace> namespace_;
  std::vector<TCollectorNote> notes_;
  TOrigin origin_{{}, UtcTimeText(std::time(nullptr))};
};

}  // namespace NZELVYR20
