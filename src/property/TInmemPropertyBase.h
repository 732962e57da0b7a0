#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "DisplayQualifiers.h"
#include "ICIMProperty.h"

namespace NZELVYR20 {

class ICIMQualifier;
class TInmemPropertyDecl;
class TValueMapTable;

/// One property of one instance, whatever links it to its declaration: its values, their checks
/// and their renderings. Whoever hands a property out sees to it that something keeps the
/// declaration alive.
///
/// TInmemPropertyBase.cpp holds the values and their checks, TInmemPropertyValueMap.cpp the
/// translation of numbers into texts, TInmemPropertyDisplay.cpp units, scaling and the renderings.
class TInmemPropertyBase : public ICIMProperty {
 public:
  /// A range of numbers and the text that stands for it.
  struct TValueMapEntry {
    std::uint64_t low;
    std::uint64_t high;  ///< all bits set while the range is open
    std::string text;
  };

  TInmemPropertyBase(const TInmemPropertyBase&) = delete;

  TCIMValue::TCIMType GetType(TCIMContext context) const override;
  bool IsArray(TCIMContext context) const override;
  bool IsDefaultValue(TCIMContext context) const override;
  const TCIMValue& GetValue(TCIMContext context) const override;
  void SetValue(const TCIMValue& value, TCIMContext context) override;
  bool GetPropagated(TCIMContext context) const override;
  bool operator==(ICIMProperty& other) const override;
  bool operator<(ICIMProperty& other) const override;
  ICIMProperty& operator=(const ICIMProperty& other) override;
  TInmemPropertyBase& operator=(const TInmemPropertyBase& other);
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

 protected:
  TInmemPropertyBase() = default;
  ~TInmemPropertyBase() override = default;

  /// The declaration, which something else holds.
  virtual const ICIMPropertyDecl& Declaration() const = 0;

  /// Its own value; empty where the declaration's default shows.
  virtual const TCIMValue* FindOwnValue() const = 0;

  /// Keeps a value that passed the checks. Changes nothing where it throws.
  virtual void KeepOwnValue(const TCIMValue& value) = 0;

  /// The value that was recorded as the one before; empty where none was.
  virtual const TCIMValue* FindPreviousValue() const = 0;
  virtual void KeepPreviousValue(const TCIMValue& value) = 0;

  /// A pointer by which the property stays; empty where it cannot make one.
  virtual boost::shared_ptr<const void> Hold() { return {}; }

 private:
  const TCIMValue& GetOwnValue() const;
  boost::shared_ptr<const void> Check(const TCIMValue& value, const char* operation);

  const TInmemPropertyDecl* FindOwnDeclaration() const;
  boost::shared_ptr<TValueMapTable> FindTable(const TCIMValue& value, int arrayBit) const;
  TValueMapTable* FindKeptTable(const TInmemPropertyDecl& declaration) const;
  boost::shared_ptr<const ICIMQualifier> FindQualifier(const TDisplayQualifier& name) const;
  boost::shared_ptr<const ICIMQualifier> FindUsableQualifier(const TDisplayQualifier& name,
                                                             TCIMValue::TCIMType type) const;
  std::string FindText(const TDisplayQualifier& name) const;
  bool IsQualifierSet(const TDisplayQualifier& name) const;

  std::string Render(const TCIMValue& value) const;
  std::string RenderTime(std::uint64_t number, int scale) const;
  std::string RenderScaled(std::uint64_t number, std::string_view unit, int scale) const;
  std::string RenderUnit(std::string_view unit, int scale) const;
  int GetScaleLimit() const;
};

}  // namespace NZELVYR20
