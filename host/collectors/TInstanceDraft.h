#pragma once

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TCIMReference.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// An instance that is being filled. A property that is not set stays null: so does one whose
/// value is not known.
class TInstanceDraft {
 public:
  TInstanceDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& className);

  /// The value has to be of the property's very type; status 14 otherwise.
  TInstanceDraft& Set(const std::string& name, const TCIMValue& value);

  template <class TContent>
  TInstanceDraft& Set(const std::string& name, const std::optional<TContent>& content) {
    return content ? Set(name, TCIMValue(*content)) : *this;
  }

  /// An empty text counts as not known.
  TInstanceDraft& SetText(const std::string& name, const std::string& text);

  /// One of the standard's numbered meanings.
  TInstanceDraft& SetCode(const std::string& name, unsigned code);
  TInstanceDraft& SetCodes(const std::string& name, const std::vector<unsigned>& codes);

  /// The path by the keys that are set now.
  TCIMReference GetPath() const;

  /// False when the namespace did not take the instance.
  bool AddToNamespace();

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMInstance> instance_;
};

}  // namespace NZELVYR20
