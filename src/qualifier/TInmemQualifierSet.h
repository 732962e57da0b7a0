#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>
#include <string_view>

#include "Enumerate.h"
#include "ICIMNamedElement.h"
#include "ICIMQualifier.h"
#include "TInmemQualifier.h"
#include "TNameTable.h"

namespace NZELVYR20 {

/// Normalized names of the qualifiers that decide the repository's rules.
namespace QualifierKey {
constexpr std::string_view kAbstract = "abstract";
constexpr std::string_view kAssociation = "association";
constexpr std::string_view kKey = "key";
constexpr std::string_view kOverride = "override";
}  // namespace QualifierKey

/// The qualifiers that are attached to one element, and the rules for attaching them.
class TInmemQualifierSet {
 public:
  /// What an attached qualifier that may not be replaced is compared by.
  enum class EMatch : std::uint8_t { kValue, kValueAndFlavor };

  explicit TInmemQualifierSet(EMatch match) : match_(match) {}

  /// ICIMNamedElement::AddQualifier: status 25, then 28; a failure changes nothing.
  void Add(boost::shared_ptr<ICIMQualifier> qualifier);

  /// Takes out the qualifier of that name; status 15 when there is none.
  void Remove(const std::string& name);

  /// The qualifier of that name; empty when there is none. Status 25.
  boost::shared_ptr<TInmemQualifier> Find(const std::string& name) const;

  /// The same by a name that is normalized already.
  boost::shared_ptr<TInmemQualifier> FindKey(std::string_view key) const {
    return qualifiers_.Find(key);
  }

  /// The same for one of a few names, each marked by a bit, that are asked for again and again and
  /// are rarely there: a miss is noted until the next change.
  boost::shared_ptr<TInmemQualifier> FindRare(std::string_view key, std::uint8_t bit) const {
    if ((missing_ & bit) != 0) return {};
    auto qualifier = FindKey(key);
    if (!qualifier) missing_ |= bit;
    return qualifier;
  }

  /// Differs after a qualifier was attached or taken out from what it was before.
  std::uint64_t GetRevision() const { return qualifiers_.GetRevision(); }

  /// ICIMNamedElement::GetQualifier with the found flag.
  boost::shared_ptr<TInmemQualifier> Find(const std::string& name, bool& found) const;

  /// Whether the qualifier is there with a value that is not null and true. A value that is no
  /// boolean is whatever its conversion throws.
  bool IsFlagSet(std::string_view key) const;

  /// IsFlagSet of "key", without a search: it decides over every property of every instance made.
  bool IsKey() const { return key_ != nullptr && IsTrue(*key_); }

  template <class TOwner>
  void Enumerate(const TOwner& owner, TEnumerationRule rule,
                 const TCIMQualifierCallback& callback) const {
    NZELVYR20::Enumerate(owner, qualifiers_, rule, callback);
  }

  /// Which qualifiers a superclass passes down. Making a class leaves "abstract" behind, while
  /// refreshing one takes it along: hosts rely on the difference.
  enum class EInherit { kAllButAbstract, kAll };

  /// Copies of what the superclass's flavors pass to subclasses, marked propagated, for `owner`,
  /// under the names that their declarations have now: those of a host's may have changed. Status
  /// 25.
  using TInherited = TNameTable<TInmemQualifier>::TDraft;
  TInherited GetInherited(const TInmemQualifierSet& superClass,
                          const boost::shared_ptr<const ICIMNamedElement>& owner,
                          EInherit inherit) const;
  /// Attaches them. What is attached already stays.
  void Insert(TInherited copies) noexcept;

  /// Puts copies that hold no classes in place of the qualifiers that may.
  void ReleaseClasses() noexcept;

 private:
  static bool IsTrue(const TInmemQualifier& qualifier);
  bool Conflicts(const ICIMQualifier& attached, const ICIMQualifier& added) const;
  void NoteChange() {
    key_ = FindKey(QualifierKey::kKey).get();
    missing_ = 0;
  }

  TNameTable<TInmemQualifier> qualifiers_;
  const TInmemQualifier* key_ = nullptr;  ///< the qualifier "key" among them
  mutable std::uint8_t missing_ = 0;      ///< what FindRare did not find
  const EMatch match_;
};

}  // namespace NZELVYR20
