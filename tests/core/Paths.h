#pragma once

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include "ICIMPropertyDecl.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"
#include "TVYRException.h"

namespace NZELVYR20 {

using TKeys = std::vector<std::pair<std::string, TCIMValue>>;
using TText = const std::string&;
using TType = TCIMValue::TCIMType;
using TValues = std::vector<TCIMValue>;

/// A class that nothing but its name is asked of.
inline TClass MakeClass(TText name) {
  return AllocatePluginNamespace()->AllocateClass(name, {}, {});
}

inline TCIMReference MakePath(const TClass& cimClass, const TKeys& keys = {}) {
  TCIMReference path({}, {});
  path.SetClass(cimClass);
  for (const auto& key : keys) path.AddKeyValue(key.first, key.second);
  return path;
}

/// What the action returns or, where it throws, the message of that.
template <class TAction>
std::string ResultOf(const TAction& action) {
  try {
    return action();
  } catch (const std::exception& exception) {
    return exception.what();
  }
}

}  // namespace NZELVYR20
