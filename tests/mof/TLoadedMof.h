#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMClass.h"
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

  const boost::shared_ptr<ICIMNamespace>& Get() const { return namespace_; }
  boost::shared_ptr<ICIMClass> Class(const std::string& name) const;
  bool Has(const std::string& className) const;
  /// The properties of the instance, named between blanks, each with a "|" behind it.
  std::string Show(const std::string& path, const std::string& properties) const;
  bool HasInstance(const std::string& path) const;
  /// The text of a qualifier of a property, "-" where there is none.
  std::string Qualifier(const std::string& className, const std::string& property,
                        const std::string& qualifier) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
  std::vector<std::string> messages_;
  TMofLoader loader_;
};

}  // namespace NZELVYR20
