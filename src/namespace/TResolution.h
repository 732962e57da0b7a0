#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "TStanding.h"

namespace NZELVYR20 {

class ICIMElement;
class TCIMReference;
class TInmemNamespace;

/// Watches one resolution of a path by the host, which may have its answer from wherever it likes:
/// notes what the namespace itself gave when it was asked meanwhile for this very path.
class TResolution {
 public:
  /// `nameSpace` may be empty: then nothing is noted.
  explicit TResolution(const boost::shared_ptr<TInmemNamespace>& nameSpace);
  TResolution(const TResolution&) = delete;
  TResolution& operator=(const TResolution&) = delete;
  ~TResolution();

  /// What the host says stands under the path; status 15 when nothing does, and what it throws.
  boost::shared_ptr<ICIMElement> Resolve(const TCIMReference& path);

  /// Where the element that Resolve returned stands; not current unless the namespace gave it.
  const TStanding& GetStanding() const { return standing_; }

  /// The namespace gives `element`, which stands here.
  void NoteGiven(TStanding standing, const ICIMElement& element);

 private:
  const boost::shared_ptr<TInmemNamespace> nameSpace_;
  TResolution* const outer_;
  TStanding standing_;
  const ICIMElement* given_ = nullptr;  ///< alive as long as it stands there
};

}  // namespace NZELVYR20
