#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"
#include "PluginNamespace.h"
#include "TMofLoader.h"

namespace NZELVYR20 {

/// A fresh namespace of the plug-in, and what is loaded into it.
class TLoadedMof {
 public:
  explicit TLoadedMof(const std::string& text = "", TMofOptions options = {});

  /// Loads a further text, called t.mof, or a file or folder.
  TLoadedMof& LoadText(const std::string& text);
  TLoadedMof& LoadFile(const std::string& path);

  /// The first line of each message, without the place in the text except its line and column.
  std::string TakeMessages();
  TMofSummary GetSummary() const { return loader_.GetSummary(); }

  const boost::shared_ptr<ICIMNamespace>& GetNamespace() const { return namespace_; }
  std::string Write() const;
  /// All that the interfaces tell of the namespace: two are equal when these texts are.
  std::string Dump() const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_ = AllocatePluginNamespace();
  TMofOptions options_;
  std::string messages_;
  TMofLoader loader_;
};

}  // namespace NZELVYR20
