#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "CompareNamespaces.h"
#include "ICIMNamespace.h"
#include "TChangeText.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// Keeps a namespace as the machine is, round after round, and tells what changes.
class TWatch {
 public:
  /// Fills an empty namespace with what is there at present.
  using TCollect = std::function<void()>;
  /// Is told what changes.
  using TTell = std::function<void(const TComparison&)>;

  /// `collect` fills `present`, which has the schema of `kept` and is for this object alone.
  TWatch(boost::shared_ptr<ICIMNamespace> kept, boost::shared_ptr<ICIMNamespace> present,
         TCollect collect);

  /// Collects anew, and leaves the kept namespace alone.
  void Look();
  /// Brings the kept namespace up to date with that, as ApplyChanges() does, after handing over
  /// what changes.
  void Update(const TTell& tell);

  /// Both: looks, writes a line for each change that `text` shows, beginning with `lead`, and
  /// updates with all of them.
  void Round(const TChangeText& text, const std::string& lead, const TWriteText& write);

 private:
  boost::shared_ptr<ICIMNamespace> kept_;
  boost::shared_ptr<ICIMNamespace> present_;
  TCollect collect_;
};

}  // namespace NZELVYR20
