#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

/// Object paths as texts, and what they lead to. An instance has one text, whoever refers to it and
/// however: so paths compare as texts do. Remembers what was asked for lately, since a join asks at
/// once for what it has just been given.
class TSqlPaths {
 public:
  explicit TSqlPaths(boost::shared_ptr<ICIMNamespace> nameSpace);

  /// The path as people read it; valid until the next call.
  const std::string& TextOf(const boost::shared_ptr<ICIMInstance>& instance);
  /// The path of the instance to which the reference leads; its own where it leads nowhere.
  std::string TextOf(const TCIMReference& reference);

  /// Empty where the text leads nowhere or is no path. Letter case and the order of keys do not
  /// count here.
  boost::shared_ptr<ICIMInstance> Find(const std::string& text);

 private:
  struct TEntry {
    boost::shared_ptr<ICIMInstance> instance;
    std::string text;
  };

  TEntry& EntryOf(const ICIMInstance* instance);
  TEntry& EntryOf(const std::string& text);

  boost::shared_ptr<ICIMNamespace> namespace_;
  std::vector<TEntry> byInstance_;
  std::vector<TEntry> byText_;
};

}  // namespace NZELVYR20
