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
  /// A value that did not fit its property.
  struct TSlip {
    std::string property;  ///< such as "CIM_NetworkPort.PortNumber (uint16)"
    std::string value;     ///< such as "the value is sint32 5"
  };

  TInstanceDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& className);

  /// The value has to be of the property's very type. Otherwise, as where there is no such
  /// property, the slip is kept and the property stays null.
  TInstanceDraft& Set(const std::string& name, const TCIMValue& value);

  template <class TContent>
  TInstanceDraft& Set(const std::string& name, const std::optional<TContent>& content) {
    return content ? Set(name, TCIMValue(*content)) : *this;
  }

  /// An empty text counts as not known.
  TInstanceDraft& SetText(const std::string& name, const std::string& text);

  TInstanceDraft& SetTexts(const std::string& name, const std::vector<std::string>& texts);

  /// One of the standard's numbered meanings.
  TInstanceDraft& SetCode(const std::string& name, unsigned code);
  TInstanceDraft& SetCodes(const std::string& name, const std::vector<unsigned>& codes);

  const std::string& GetClassName() const { return className_; }
  const std::vector<TSlip>& GetSlips() const { return slips_; }

  void Add() const;
  /// Its path; nothing where a key is null or the namespace did not take it.
  std::optional<TCIMReference> FindPath() const;

 private:
  std::string className_;
  boost::shared_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMInstance> instance_;
  std::vector<TSlip> slips_;
};

}  // namespace NZELVYR20
