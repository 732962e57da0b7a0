#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TMofLoader.h"

namespace NZELVYR20 {

/// The usual qualifiers on one line each, so that the lines of a test's own text keep their
/// numbers.
extern const char* const kQualifiers;

/// A fresh namespace of the plug-in, with the usual qualifiers and what a test loads into it.
class TLoadedMof {
 public:
  explicit TLoadedMof(const std::string& text = "", const TMofOptions& options = {});

  /// Loads a further text, or a file or folder.
  TLoadedMof& LoadText(const std::string& text);
  TLoadedMof& LoadFile(const std::string& path);

  /// The first line of each message, without the place in the text "t.mof" except its line and
  /// column.
  std::string TakeMessages();
  TMofSummary GetSummary() const { return loader_.GetSummary(); }

  std::string Write() const;
  bool Has(const std::string& className) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
  std::shared_ptr<TMofReferenceClasses> classes_;
  std::vector<std::string> messages_;
  TMofLoader loader_;
};

}  // namespace NZELVYR20
