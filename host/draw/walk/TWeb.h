#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ListAssociators.h"
#include "ListElements.h"
#include "TEndOrder.h"

namespace NZELVYR20 {

/// How far a walk along associations goes.
struct TWalk {
  bool isDown = true;
  bool isUp = false;
  std::optional<std::size_t> depth;  ///< the most steps from where it starts; none for any number
  TClassList associations;           ///< these and their subclasses; none for all
};

/// One step of an association's instance; numbers are those of instances.
struct TStep {
  std::size_t from;
  std::size_t to;
  EWay way;
  boost::shared_ptr<ICIMClass> association;
};

/// Instances, and how associations lead from one to another.
class TWeb {
 public:
  /// All that is not an association, with all associations. Of each pair of ends there is the one
  /// step that leads down or, where they are level, one of both.
  static TWeb OfAll(ICIMNamespace& nameSpace);

  /// What a walk from an instance meets, nearest first, and so the instance itself as number 0.
  /// Each pair of ends gives one step, in the direction of the walk.
  static TWeb Around(const boost::shared_ptr<ICIMInstance>& start, const TWalk& walk);

  const TInstanceList& GetInstances() const { return instances_; }
  const std::vector<TStep>& GetSteps() const { return steps_; }
  /// Whether there is more to be met from an instance, for which the walk was too short.
  bool IsCutAt(std::size_t instance) const { return instance < isCut_.size() && isCut_[instance]; }

 private:
  std::size_t GetNumber(const boost::shared_ptr<ICIMInstance>& instance);
  void AddAll(ICIMInstance& association);
  void Expand(std::size_t from, const TWalk& walk);
  void LookBeyond(std::size_t from, const TWalk& walk);
  template <class TUse>
  void VisitNext(std::size_t from, const TWalk& walk, const TUse& use);

  TInstanceList instances_;
  std::vector<TStep> steps_;
  std::vector<bool> isCut_;
  std::unordered_map<const ICIMInstance*, std::size_t> numbers_;
  TEndOrder order_;
};

}  // namespace NZELVYR20
