#pragma once

#include <ICIMInstance.h>
#include <ICIMNamespace.h>
#include <TCIMReference.h>
#include <TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// An instance that is being filled. A property that is not set stays null: so does one whose
/// value is not known.
class TInstanceDraft {
 public:
  /// A value that did not fit its property.
  struct TSlip {
    std::string property;  ///< such as "Lamp.Count"
    std::string type;      ///< that of the declaration; empty where there is none
    std::string value;     ///< with its type, such as "sint32 5"
  };

  /// Throws TKitError where there is no such class.
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

  /// Adds the instance as it is, in place of one that has its path, and gives the path; nothing
  /// where the namespace did not take it.
  std::optional<TCIMReference> TryAdd() const;

  /// The same where every slip, and an instance that is not taken, is a TKitError with the reason.
  /// What slipped is not added.
  TCIMReference Add() const;

 private:
  std::string GetReason() const;

  std::string className_;
  boost::shared_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMInstance> instance_;
  std::vector<TSlip> slips_;
};

}  // namespace NZELVYR20
