#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ICIMProperty.h"

namespace NZELVYR20 {

class ICIMQualifier;

/// One property of one instance. It knows its declaration weakly: whoever hands a property out
/// sees to it that something else keeps the declaration alive.
///
/// TInmemProperty.cpp holds the values and their checks, TInmemPropertyValueMap.cpp the translation
/// of numbers into texts, TInmemPropertyDisplay.cpp units, scaling and the renderings.
class TInmemProperty : public ICIMProperty {
 public:
  /// A range of numbers and the text that stands for it.
  struct TValueMapEntry {
    std::uint64_t low;
    std::uint64_t high;  ///< all bits set while the range is open
    std::string text;
  };

  /// Without a value of its own.
  explicit TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration);

  /// With the value, under the checks of SetValue.
  TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration,
                 const TCIMValue& value);

  /// With the declaration and value of the other; a null value and the previous value stay behind.
  explicit TInmemProperty(const boost::shared_ptr<const ICIMProperty>& other);

  TInmemProperty(const TInmemProperty&) = delete;
  ~TInmemProperty() override;

  TCIMValue::TCIMType GetType(TCIMContext context) const override;
  bool IsArray(TCIMContext context) const override;
  bool IsDefaultValue(TCIMContext context) const override;
  const TCIMValue& GetValue(TCIMContext context) const override;
  void SetValue(const TCIMValue& value, TCIMContext context) override;
  bool GetPropagated(TCIMContext context) const override;
  boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const override;
  bool operator==(ICIMProperty& other) const override;
  bool operator<(ICIMProperty& other) const override;
  ICIMProperty& operator=(const ICIMProperty& other) override;
  TInmemProperty& operator=(const TInmemProperty& other);
  const TCIMValue& GetPrevValue() const override;
  void SetPrevValue(const TCIMValue& value) override;
  void SetPrevValue() override;
  bool IsPrevValueDifferent() const override;
  std::string ToString() const override;
  std::string PrevValueToString() const override;
  std::vector<std::string> ToStringVector() const override;

  /// Appends the table that the qualifiers "Values" and "ValueMap" make, and sets the text for
  /// values that no entry covers. False when they make none; what was appended before a
  /// contradiction was met stays.
  bool BuildValueMapEntryArray(std::vector<TValueMapEntry>& table, std::string& otherText) const;

  /// The text of the first entry that covers the value, else `otherText`, else the number. Status
  /// 1 for a value that is neither boolean nor unsigned.
  std::string LookupInTable(const TCIMValue& value, std::vector<TValueMapEntry>& table,
                            std::string& otherText) const;

  /// The value as text, in the base that the qualifier "BASE" gives.
  std::string ToStringWithBase(const TCIMValue& value) const;

  /// One scalar as people read it: units, scaling, and the text for null.
  std::string ToStringWithQualifiers(const TCIMValue& value) const;

  /// ToStringWithQualifiers of each element; of the value itself where the property is no array.
  std::vector<std::string> ToStringVectorWithBase() const;

 private:
  void Check(const TCIMValue& value, const char* operation) const;

  boost::shared_ptr<const ICIMQualifier> FindQualifier(const std::string& name) const;
  boost::shared_ptr<const ICIMQualifier> FindUsableQualifier(const std::string& name,
                                                             TCIMValue::TCIMType type) const;
  std::string FindText(const char* name) const;
  bool IsQualifierSet(const char* name) const;

  std::string Render(const TCIMValue& value) const;
  std::string RenderTime(std::uint64_t number, int scale) const;
  std::string RenderScaled(std::uint64_t number, const std::string& unit, int scale) const;
  std::string RenderUnit(const std::string& unit, int scale) const;
  int GetScaleLimit() const;

  const boost::weak_ptr<const ICIMPropertyDecl> declaration_;
  std::unique_ptr<const TCIMValue> value_;  ///< empty: the declaration's default shows
  std::unique_ptr<const TCIMValue> previousValue_;
  bool hasPreviousValue_ = false;
};

}  // namespace NZELVYR20
