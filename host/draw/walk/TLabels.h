#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <unordered_map>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ListInstanceKeys.h"

namespace NZELVYR20 {

/// What people know an instance by; each part is one line.
struct TLabel {
  std::string className;
  std::string name;   ///< that tells it from others of its class: the values of its own keys
  std::string title;  ///< what else is said of it in short; may be empty
};

/// Reads labels.
class TLabels {
 public:
  TLabel Read(ICIMInstance& instance);

 private:
  struct TClassFacts {
    boost::shared_ptr<ICIMClass> cimClass;  ///< so that its address stays its own
    std::vector<TInstanceKey> ownKeys;
    std::vector<std::string> titles;  ///< properties that may say more, best first
  };

  static TClassFacts Describe(const boost::shared_ptr<ICIMClass>& cimClass);

  std::unordered_map<const ICIMClass*, TClassFacts> known_;
};

}  // namespace NZELVYR20
