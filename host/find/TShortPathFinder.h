#pragma once

#include <functional>
#include <string>

#include "ICIMNamespace.h"
#include "ListElements.h"
#include "TShortPathReader.h"

namespace NZELVYR20 {

/// Looks through the instances for those that a short path names. A class's name stands for its
/// subclasses, too; but where one instance of the very class is meant, it goes before theirs, as
/// values in the same letter case go before others.
class TShortPathFinder {
 public:
  /// The canonical text of an object path that the user typed in any form; empty for none.
  using TResolve = std::function<std::string(const std::string& path)>;

  TShortPathFinder(boost::shared_ptr<ICIMNamespace> nameSpace, TResolve resolve);

  /// One instance, or several where the path is ambiguous.
  TInstanceList Find(const std::string& path) const;

 private:
  struct TMatches {
    TInstanceList exact;
    TInstanceList folded;
  };

  void AddMatches(ICIMClass& cimClass, const TShortPath& path, TMatches& matches) const;
  TInstanceList FindAs(const TShortPath& path) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  TResolve resolve_;
};

}  // namespace NZELVYR20
