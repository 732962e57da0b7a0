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
    std::string what;  ///< such as "Lamp.Count = sint32 5"
    std::string why;   ///< such as "the type does not match (uint32)"
  };

  /// Throws TKitError where there is no such class, or no namespace.
  TInstanceDraft(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& className);

  /// The value has to be of the property's very type. Otherwise, as where there is no such
  /// property, the slip is kept and the property stays null.
  TInstanceDraft& Set(const std::string& name, const TCIMValue& value);

  /// The same; nothing counts as not known.
  template <class TContent>
  TInstanceDraft& Set(const std::string& name, const std::optional<TContent>& content) {
    return content ? Set(name, TCIMValue(*content)) : *this;
  }

  /// An empty text counts as not known.
  TInstanceDraft& SetText(const std::string& name, const std::string& text);

  /// An array of texts.
  TInstanceDraft& SetTexts(const std::string& name, const std::vector<std::string>& texts);

  /// One of the standard's numbered meanings.
  TInstanceDraft& SetCode(const std::string& name, unsigned code);
  /// An array of such.
  TInstanceDraft& SetCodes(const std::string& name, const std::vector<unsigned>& codes);

  /// As it was given.
  const std::string& GetClassName() const { return className_; }
  /// All that did not fit, in order.
  const std::vector<TSlip>& GetSlips() const { return slips_; }

  /// Adds the instance in place of one that has its path, and gives the path. A slip, and an
  /// instance that the namespace does not take, is a TKitError with the reason.
  TCIMReference Add() const;

  /// Adds it whatever slipped; the namespace logs it where it does not take it.
  void AddAnyway() const;
  /// Its path; nothing where the namespace has not taken it.
  std::optional<TCIMReference> FindPath() const;

 private:
  std::string GetReason() const;

  std::string className_;
  boost::shared_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMInstance> instance_;
  std::vector<TSlip> slips_;
};

}  // namespace NZELVYR20
