#pragma once

#include <boost/weak_ptr.hpp>
#include <functional>
#include <utility>
#include <vector>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "SmallSchema.h"

namespace NZELVYR20 {

/// A callback for every enumeration.
struct TVisit {
  std::function<bool()> work;

  template <class TElement>
  bool operator()(const TElement&) const {
    return work();
  }
};

/// A namespace in which every enumeration finds several elements.
struct TEveryWalk {
  using TWalk = std::pair<const char*, std::function<void(const TVisit&)>>;

  explicit TEveryWalk(const TSpace& nameSpace);

  std::vector<TWalk> GetWalks() const;
  std::vector<boost::weak_ptr<void>> Watch() const;
  void Drop();

  TSpace space;
  TClass root, port;
  TInstance hub;
  TPropertyDecl property;
  boost::shared_ptr<ICIMMethodDecl> method;
  boost::shared_ptr<ICIMParameterDecl> parameter;
};

}  // namespace NZELVYR20
